#include "TapeBench.h"

#include <algorithm>
#include <chrono>
#include <functional>
#include <memory>

#include "CellByCell.h"
#include "excel/Door.h"
#include "platform/headless/Headless.h"
#include "support/CErrorHandler.h"
#include "support/mGlobal.h"
#include "tape/frmAddRibbon.h"
#include "tests/tape/WorkbookBuilder.h"

namespace pellora::bench {
namespace {

struct Figure {
  double calls = 0;
  double milliseconds = 0;
};

Figure Measure(const std::function<void()>& act) {
  const auto calls = excel::CallCount();
  const auto start = std::chrono::steady_clock::now();
  act();
  const std::chrono::duration<double, std::milli> time = std::chrono::steady_clock::now() - start;
  return {static_cast<double>(excel::CallCount() - calls), time.count()};
}

/// The shared services and a workbook of one size.
class Bench : public TapeOwner {
 public:
  Bench(test::SheetHost& host, int instruments, int tapes)
      : m_instruments(instruments), m_tapes(tapes), m_application(host.Fresh()) {
    mGlobal::ErrorHandler = std::make_shared<CErrorHandler>();
    mGlobal::ErrorHandler->Init(actions::Dialog, "Error Log.txt", true, false, 2, "Tracing Log.txt");
    m_settings->Init("CORVANE", "Vantix");
    test::WorkbookBuilder(test::Book(m_application)).Instruments(instruments).Tapes(tapes);
    m_dialog.Owner(this);
    m_dialog.AppSettings(m_settings);
  }
  ~Bench() override { mGlobal::ErrorHandler.reset(); }

  DispatchPtr ExcelApplication() override { return m_application; }

  void Run(std::FILE* report) {
    const auto open = Measure([&] { m_dialog.Load(); });
    const auto depth = mGlobal::ErrorHandler->CallStackDepth();
    const auto runs = mGlobal::ErrorHandler->CallStackRuns();
    const auto row = Measure([&] { m_dialog.VSFExcel.Row(5); });
    m_dialog.txtAddress.Text("Sheet1!H3:I9");
    const auto insert = Measure([&] { m_dialog.ButInsert.PeerClick(); });
    bool scaled = false;
    const auto naive = CellByCell(scaled);
    std::fprintf(report, "%7d %6d | %6.0f %9.1f | %5.0f %6.2f | %6.0f %7.2f | %9zu %6zu | %s%11.0f %11.1f | %9.0fx\n",
                 m_instruments, m_tapes, open.calls, open.milliseconds, row.calls, row.milliseconds, insert.calls,
                 insert.milliseconds, depth, runs, scaled ? "~" : " ", naive.calls, naive.milliseconds,
                 naive.calls / open.calls);
  }

 private:
  /// Large sizes would run for minutes: there some rows stand for all.
  Figure CellByCell(bool& scaled) {
    constexpr int kMostSteps = 20000;
    const int rows = std::clamp(kMostSteps / (m_tapes + 1), 1, m_instruments);
    scaled = rows < m_instruments;
    auto figure = Measure([&] { ReadCellByCell(excel::Application(m_application), rows, m_tapes); });
    const double scale = static_cast<double>(m_instruments) / rows;
    return {figure.calls * scale, figure.milliseconds * scale};
  }

  int m_instruments;
  int m_tapes;
  DispatchPtr m_application;
  headless::HeadlessPlatform m_platform;
  std::shared_ptr<CAppSettings> m_settings = std::make_shared<CAppSettings>();
  frmAddRibbon m_dialog{m_platform.toolkit};
};

}  // namespace

void ReportTapeDialog(test::SheetHost& host, std::FILE* report) {
  std::fprintf(report,
               "Ticker tape dialog on %s: calls to the spreadsheet and milliseconds.\n"
               "~ means measured on some of the rows and scaled.\n\n"
               "  instr  tapes |   open        ms |   row     ms | insert      ms |   entries   runs |   cell by cell"
               "          ms |  fewer calls\n",
               std::string(host.Name()).c_str());
  for (const int instruments : {10, 1000, 10000})
    for (const int tapes : {0, 100, 1000}) Bench(host, instruments, tapes).Run(report);
}

}  // namespace pellora::bench
