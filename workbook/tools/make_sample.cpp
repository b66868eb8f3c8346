#include <cstdlib>
#include <iostream>

#include "core/Error.h"
#include "workbook/Document.h"
#include "workbook/Host.h"
#include "workbook/tools/Sample.h"

/// Writes the sample workbook: `make_sample FILE`, or a large one: `make_sample FILE INSTRUMENTS TAPES`.
int main(int count, char** arguments) {
  using namespace pellora::workbook;
  if (count != 2 && count != 4) {
    std::cerr << "usage: make_sample FILE [INSTRUMENTS TAPES]\n";
    return 2;
  }
  try {
    Host host;
    host.document().sheets.clear();
    if (count == 4)
      MakeLarge(host.document(), std::atoi(arguments[2]), std::atoi(arguments[3]));
    else
      MakeSample(host.document());
    host.Save(arguments[1]);
  } catch (const pellora::Error& error) {
    std::cerr << "make_sample: " << error.Description() << "\n";
    return 1;
  }
  return 0;
}
