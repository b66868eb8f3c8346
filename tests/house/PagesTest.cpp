// The pages for readers: a link or a picture that leads nowhere is found here and not by a reader.

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "tests/house/Root.h"

namespace {

namespace fs = std::filesystem;
using house::kRoot;

std::vector<fs::path> Pages() {
  std::vector<fs::path> pages = {kRoot / "README.md"};
  for (const auto& entry : fs::directory_iterator(kRoot / "docs"))
    if (entry.path().extension() == ".md") pages.push_back(entry.path());
  return pages;
}

// The text of a page without its code: blocks between lines of three backquotes, and what stands between two of them.
std::string WithoutCode(std::istream& page) {
  std::string text;
  bool inBlock = false;
  for (std::string line; std::getline(page, line);) {
    if (line.starts_with("```"))
      inBlock = !inBlock;
    else if (!inBlock)
      text += line + "\n";
  }
  std::string plain;
  bool inCode = false;
  for (const char c : text) {
    if (c == '`') inCode = !inCode;
    if (!inCode) plain += c;
  }
  return plain;
}

// Where the links and pictures of a text lead: what stands between "](" and ")".
std::vector<std::string> Targets(const std::string& text) {
  std::vector<std::string> targets;
  for (auto at = text.find("]("); at != std::string::npos; at = text.find("](", at + 1))
    if (const auto end = text.find(')', at); end != std::string::npos)
      targets.push_back(text.substr(at + 2, end - at - 2));
  return targets;
}

std::vector<std::string> TargetsOf(const fs::path& page) {
  std::ifstream stream(page);
  return Targets(WithoutCode(stream));
}

bool LeadsSomewhere(const fs::path& page, const std::string& target) {
  if (target.starts_with("https:")) return true;
  const auto file = target.substr(0, target.find('#'));
  return file.empty() || fs::exists(page.parent_path() / file);
}

TEST(Pages, LeadToFilesAndPicturesThatAreThere) {
  std::string lost;
  for (const auto& page : Pages())
    for (const auto& target : TargetsOf(page))
      if (!LeadsSomewhere(page, target)) lost += page.filename().string() + ": " + target + "\n";
  EXPECT_EQ(lost, "");
}

TEST(Pages, HaveLinksToLookAt) {
  std::size_t targets = 0;
  for (const auto& page : Pages()) targets += TargetsOf(page).size();
  EXPECT_GT(targets, 20u);
}

TEST(Pages, AreReadWithoutTheirCode) {
  std::istringstream page("See [one](one.md) and `[two](two.md)`.\n```\n[three](three.md)\n```\n![four](four.png)\n");
  EXPECT_EQ(Targets(WithoutCode(page)), (std::vector<std::string>{"one.md", "four.png"}));
}

TEST(Pages, AreReachedFromTheFirstOne) {
  const auto shown = TargetsOf(kRoot / "README.md");
  std::string hidden;
  for (const auto& page : Pages()) {
    const auto name = "docs/" + page.filename().string();
    if (page.filename() != "README.md" && std::find(shown.begin(), shown.end(), name) == shown.end())
      hidden += name + "\n";
  }
  EXPECT_EQ(hidden, "");
}

}  // namespace
