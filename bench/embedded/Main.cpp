#include "bench/TapeBench.h"

int main() { pellora::bench::ReportTapeDialog(pellora::test::TheHost(), stdout); }
