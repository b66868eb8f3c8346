#include <gtest/gtest.h>

#include <cstdio>
#include <fstream>
#include <sstream>
#include <string>

#include "core/Error.h"

namespace pellora {
namespace {

struct Documented {
  std::uint32_t offset;
  const char* text;
};

constexpr Documented kErrors[] = {
    {0x0064, "cPellora component failure"},
    {0x427D, "Invalid AppName value"},
    {0x427E, "Invalid CompanyName value"},
    {0x427F, "Invalid MainBranch value"},
    {0x4280, "Invalid root key value"},
    {0x4281, "Failed saving the application setting"},
    {0x4282, "Failed deleting the application setting"},
    {0x4283, "Failed getting all the application keys"},
    {0x4284, "CAppSettings component failure"},
    {0x43F9, "Invalid file name"},
    {0x43FA, "Invalid error handler actions"},
    {0x43FB, "Invalid tracing flags"},
    {0x43FC, "CErrorHandler component failure"},
    {0x4499, "Object not properly initialized"},
    {0x449A, "Invalid AppSettings object"},
    {0x449B, "Invalid KeyName value"},
    {0x449C, "CFormRestore component failure"},
    {0x4679, "File not found"},
    {0x467A, "Path not found"},
    {0x467C, "Out of memory"},
    {0x467D, "DLL not found"},
    {0x467E, "A sharing violation occurred"},
    {0x467F, "Incomplete or invalid file association"},
    {0x4680, "DDE timeout"},
    {0x4681, "DDE transaction failed"},
    {0x4682, "DDE busy"},
    {0x4683, "No association for file extension"},
    {0x4684, "Invalid EXE file or error in EXE image"},
    {0x4685, "Cannot create process"},
    {0x4686, "Cannot show properties"},
    {0x4687, "CShell component failure"},
};

TEST(Troubleshooting, PageNamesEveryNumberOfTheLibraryInBothForms) {
  std::ifstream file(PELLORA_SOURCE_DIR "/docs/troubleshooting.md");
  ASSERT_TRUE(file);
  std::ostringstream page;
  page << file.rdbuf();
  for (const auto& error : kErrors) {
    const auto number = errors::Component(error.offset);
    char row[128];
    std::snprintf(row, sizeof row, "\n| %d | 0x%08X | %s | ", number, static_cast<std::uint32_t>(number), error.text);
    EXPECT_NE(page.str().find(row), std::string::npos) << row;
  }
}

}  // namespace
}  // namespace pellora
