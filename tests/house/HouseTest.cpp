// The rules of the house that a compiler does not check: who may include whom, where the platform's words may stand,
// how long a file may be.

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <fstream>
#include <set>
#include <string>
#include <vector>

#include "tests/house/Root.h"

namespace {

namespace fs = std::filesystem;
using house::kRoot;
using Folders = std::set<std::string>;

struct SourceFile {
  std::string path;  // below the root, with "/"
  std::vector<std::string> lines;
  bool IsHeader() const { return path.ends_with(".h"); }
  bool IsIn(std::string_view folder) const { return path.starts_with(std::string(folder) + "/"); }
};

std::vector<std::string> ReadLines(const fs::path& path) {
  std::ifstream stream(path);
  std::vector<std::string> lines;
  for (std::string line; std::getline(stream, line);) lines.push_back(line);
  return lines;
}

const std::vector<SourceFile>& Sources() {
  static const std::vector<SourceFile> files = [] {
    std::vector<SourceFile> found;
    for (const char* top : {"src", "workbook", "tests"})
      for (const auto& entry : fs::recursive_directory_iterator(kRoot / top)) {
        const auto extension = entry.path().extension();
        if (entry.is_regular_file() && (extension == ".h" || extension == ".cpp"))
          found.push_back({fs::relative(entry.path(), kRoot).generic_string(), ReadLines(entry.path())});
      }
    return found;
  }();
  return files;
}

// What stands between `open` and `close` when the line is an include of that form, otherwise nothing.
std::string Included(const std::string& line, char open, char close) {
  const auto first = line.find_first_not_of(" \t");
  if (first == std::string::npos || line[first] != '#' || line.find("include", first) == std::string::npos) return {};
  const auto begin = line.find(open, first);
  const auto end = begin == std::string::npos ? begin : line.find(close, begin + 1);
  return end == std::string::npos ? std::string() : line.substr(begin + 1, end - begin - 1);
}

std::vector<std::string> OwnIncludes(const SourceFile& file) {
  std::vector<std::string> names;
  for (const auto& line : file.lines)
    if (auto name = Included(line, '"', '"'); !name.empty()) names.push_back(std::move(name));
  return names;
}

bool HasWord(const std::string& line, std::string_view word) {
  const auto inWord = [](char c) { return std::isalnum(static_cast<unsigned char>(c)) || c == '_'; };
  for (auto at = line.find(word); at != std::string::npos; at = line.find(word, at + 1)) {
    const auto end = at + word.size();
    if ((at == 0 || !inWord(line[at - 1])) && (end == line.size() || !inWord(line[end]))) return true;
  }
  return false;
}

// The floor an include names: "core" of "core/Text.h", "platform/windows" of "platform/windows/Win.h", empty for a
// header beside the file.
std::string FloorOf(const std::string& include) {
  for (const char* deep : {"platform/windows", "platform/headless", "platform/libreoffice", "workbook/windows"})
    if (include.starts_with(std::string(deep) + "/")) return deep;
  const auto slash = include.find('/');
  return slash == std::string::npos ? std::string() : include.substr(0, slash);
}

struct FloorRule {
  std::string folder;
  Folders mayInclude;
};

// From the ground up. A floor may include itself and what is named here.
const std::vector<FloorRule> kFloors = {
    {"src/core", {"core"}},
    {"src/forms", {"core", "forms"}},
    {"src/excel", {"core", "excel"}},
    {"src/support", {"core", "forms", "excel", "support"}},
    {"src/project", {"core", "forms", "excel", "support", "project"}},
    {"src/contract", {"core", "forms", "excel", "support", "contract"}},
    {"src/tape", {"core", "forms", "excel", "support", "tape"}},
    {"src/automation", {"core", "forms", "excel", "support", "project", "contract", "tape", "automation"}},
};

const Folders kPortable = {"core", "forms", "excel", "support", "project", "contract", "tape", "automation"};

std::string ForbiddenIncludes(const std::string& folder, const Folders& allowed) {
  std::string faults;
  for (const auto& file : Sources())
    if (file.IsIn(folder))
      for (const auto& include : OwnIncludes(file))
        if (const auto floor = FloorOf(include); !floor.empty() && !allowed.count(floor))
          faults += file.path + " includes " + include + "\n";
  return faults;
}

bool MayUseWindows(const SourceFile& file) {
  return file.IsIn("src/platform/windows") || file.IsIn("workbook/windows") || file.IsIn("tests/windows") ||
         file.IsIn("tests/hosts/automation");
}

bool SpeaksOfWindows(const std::string& line) {
  static const Folders headers = {"windows.h", "oleauto.h", "objbase.h", "shellapi.h", "commctrl.h"};
  return headers.count(Included(line, '<', '>')) || HasWord(line, "HRESULT") || HasWord(line, "BSTR") ||
         HasWord(line, "VARIANT");
}

TEST(House, IsLargeEnoughToBeWorthWalking) { EXPECT_GT(Sources().size(), 50u); }

TEST(House, AFloorIncludesLowerFloorsOnly) {
  for (const auto& rule : kFloors) EXPECT_EQ(ForbiddenIncludes(rule.folder, rule.mayInclude), "") << rule.folder;
}

TEST(House, EveryFolderOfTheSourceIsAFloorOrAPlatform) {
  Folders known = {"platform"};
  for (const auto& rule : kFloors) known.insert(rule.folder.substr(4));
  for (const auto& entry : fs::directory_iterator(kRoot / "src"))
    EXPECT_TRUE(known.count(entry.path().filename().string())) << entry.path().filename();
}

TEST(House, APlatformDoesNotIncludeAnotherOrTheEmbeddedWorkbook) {
  for (const char* platform : {"platform/windows", "platform/headless", "platform/libreoffice"}) {
    Folders allowed = kPortable;
    allowed.insert(platform);
    EXPECT_EQ(ForbiddenIncludes(std::string("src/") + platform, allowed), "") << platform;
  }
}

// A header of a system, not of a library: "vector", "unistd.h", "sys/stat.h".
bool IsOfTheSystem(const std::string& header) {
  return header.find('/') == std::string::npos || header.starts_with("sys/");
}

// They are tested without the office, which has to be at hand for everything else of its platform.
TEST(House, TheDesktopsServicesKnowTheSystemAndTheirSeamsOnly) {
  const std::string folder = "src/platform/libreoffice/services";
  std::string faults = ForbiddenIncludes(folder, {"core", "forms", "support", "platform/libreoffice"});
  int files = 0;
  for (const auto& file : Sources()) {
    if (!file.IsIn(folder)) continue;
    ++files;
    for (const auto& include : OwnIncludes(file))
      if (include.starts_with("platform/libreoffice/") && !include.starts_with("platform/libreoffice/services/"))
        faults += file.path + " includes " + include + "\n";
    for (const auto& line : file.lines)
      if (const auto header = Included(line, '<', '>'); !IsOfTheSystem(header))
        faults += file.path + " includes " + header + "\n";
  }
  EXPECT_EQ(faults, "");
  EXPECT_GT(files, 0);
}

TEST(House, TheEmbeddedWorkbookIncludesTheCoreOnly) {
  std::string faults;
  for (const auto& file : Sources()) {
    if (!file.IsIn("workbook")) continue;
    for (const auto& include : OwnIncludes(file)) {
      const auto floor = FloorOf(include);
      const bool ole = file.IsIn("workbook/windows") && include.starts_with("platform/windows/ole/");
      if (!floor.empty() && floor != "core" && floor != "workbook" && floor != "workbook/windows" && !ole)
        faults += file.path + " includes " + include + "\n";
    }
  }
  EXPECT_EQ(faults, "");
}

TEST(House, TheTestsThatRunOnEveryHostKnowNoHost) {
  Folders allowed = kPortable;
  allowed.insert({"platform/headless", "tests"});
  const std::string shared = "tests/hosts/";
  for (const char* folder : {"tests/tape", "tests/excel"}) {
    EXPECT_EQ(ForbiddenIncludes(folder, allowed), "");
    for (const auto& file : Sources())
      for (const auto& include : file.IsIn(folder) ? OwnIncludes(file) : std::vector<std::string>())
        EXPECT_FALSE(include.starts_with(shared) && include.find('/', shared.size()) != std::string::npos)
            << file.path << " includes " << include;
  }
}

TEST(House, WindowsStaysInItsRooms) {
  std::string faults;
  for (const auto& file : Sources()) {
    if (MayUseWindows(file) || file.IsIn("tests/house")) continue;
    for (std::size_t i = 0; i < file.lines.size(); ++i)
      if (SpeaksOfWindows(file.lines[i]))
        faults += file.path + ":" + std::to_string(i + 1) + ": " + file.lines[i] + "\n";
  }
  EXPECT_EQ(faults, "");
}

TEST(House, TheOfficeProgramsTypesStayInTheirRooms) {
  std::string faults;
  for (const auto& file : Sources()) {
    // The services of the same platform need the system only.
    const bool may = (file.IsIn("src/platform/libreoffice") && !file.IsIn("src/platform/libreoffice/services")) ||
                     file.IsIn("tests/libreoffice") || file.IsIn("tests/hosts/libreoffice");
    if (may || file.IsIn("tests/house")) continue;
    for (const auto& line : file.lines)
      if (line.find("com/sun/star") != std::string::npos || line.find("com::sun::star") != std::string::npos)
        faults += file.path + ": " + line + "\n";
  }
  EXPECT_EQ(faults, "");
}

TEST(House, EveryHeaderIsIncludedOnce) {
  std::string faults;
  for (const auto& file : Sources())
    if (file.IsHeader() && !std::count(file.lines.begin(), file.lines.end(), "#pragma once"))
      faults += file.path + "\n";
  EXPECT_EQ(faults, "");
}

TEST(House, NoSourceFileIsLongerThanSixHundredLines) {
  std::string faults;
  for (const auto& file : Sources())
    if (file.IsIn("src") && file.lines.size() > 600) faults += file.path + "\n";
  EXPECT_EQ(faults, "");
}

}  // namespace
