// The library comes and goes in its host's process: what it left behind each time would add up over a day.

#include <array>
#include <cstdio>

#include "DialogCloser.h"
#include "FakeApplication.h"
#include "LoadedServer.h"
#include "ProcessCounts.h"
#include "platform/windows/ole/Convert.h"

namespace pellora::windows::test {
namespace {

constexpr int kRounds = 100;
// Rounds in which the system fills its own stores: fonts, themes, input methods.
constexpr int kWarmUp = 20;
// What AddNewSymbol answers.
constexpr short kCancelled = 2;
constexpr int kCountedEach = 50;
// The heap's own ups and downs. Ten KiB lost a round would be twice that.
constexpr SIZE_T kSlack = 512 * 1024;

void Print(int round, const Counts& counts) {
  std::printf("  after %3d rounds: %lu handles, %lu GDI objects, %lu user objects, %d window classes, %lu KiB\n", round,
              counts.handles, counts.gdi, counts.user, counts.classes, static_cast<unsigned long>(counts.bytes / 1024));
}

// Hosts that load the library anew each time, as one does that frees unused libraries.
class Life : public LoadedServer {
 public:
  void SetUp() override {
    LoadedServer::SetUp();
    Unload();
  }

  using Show = void (Life::*)(_cPellora&);
  // What a macro does: hand over the application, show a dialog (which the user cancels), let go.
  void Use(Show show) {
    const auto object = Make();
    ASSERT_TRUE(object);
    const auto application = MakeFake<AnswersEverything>();
    VARIANT value{};
    value.vt = VT_DISPATCH;
    value.pdispVal = application.get();
    ASSERT_EQ(object->put_ExcelApplication(value), S_OK);
    (this->*show)(*object.get());
  }
  void Round(Show show) {
    Load();
    ASSERT_NE(Module(), nullptr);
    Use(show);
    EXPECT_EQ(CanUnload(), S_OK);
    Unload();
    EXPECT_EQ(GetModuleHandleW(L"Pellora.dll"), nullptr) << "something holds the library";
  }

  void ChooseFields(_cPellora& object) {
    std::array<short, 10> f{};
    VARIANT_BOOL confirmed = VARIANT_TRUE;
    ASSERT_EQ(object.CreateNewProject(&f[0], &f[1], &f[2], &f[3], &f[4], &f[5], &f[6], &f[7], &f[8], &f[9], &confirmed),
              S_OK);
    EXPECT_EQ(confirmed, VARIANT_FALSE);
  }
  void DescribeInstrument(_cPellora& object) {
    std::array<ole::BStr, 7> t;
    double strike = 0, multiplier = 0;
    short type = 0, outcome = 0;
    ASSERT_EQ(object.AddNewSymbol(t[0].put(), t[1].put(), t[2].put(), &strike, t[3].put(), &multiplier, t[4].put(),
                                  t[5].put(), t[6].put(), &type, &outcome),
              S_OK);
    EXPECT_EQ(outcome, kCancelled);
  }
  void SetUpTape(_cPellora& object) {
    ole::BStr outcome;
    ASSERT_EQ(object.ShowRefEditInterface(outcome.put()), S_OK);
    EXPECT_EQ(outcome.Text(), "CLOSE");
    // This dialog stays until it is let go.
    EXPECT_EQ(object.UnloadfrmMaster(), S_OK);
  }

  // The larger dialogs take several times as long under Wine.
  static Show InTurn(int round) {
    if (round % 10 == 0) return &Life::DescribeInstrument;
    return round % 5 == 2 ? &Life::SetUpTape : &Life::ChooseFields;
  }

  DialogCloser closer;
};

TEST_F(Life, AHundredRoundsOfLoadUseUnloadLeaveNothingBehind) {
  for (int round = 0; round < kWarmUp; ++round) Round(InTurn(round));
  const Counts before = CountAll();
  Print(0, before);
  Counts after;
  for (int round = 1; round <= kRounds; ++round) {
    Round(InTurn(round));
    if (round % kCountedEach == 0) Print(round, after = CountAll());
  }
  // What could not be counted would not be found growing.
  ASSERT_TRUE(before.handles && before.gdi && before.user && before.classes && before.bytes);
  EXPECT_LE(after.handles, before.handles);
  EXPECT_LE(after.gdi, before.gdi);
  EXPECT_LE(after.user, before.user);
  EXPECT_LE(after.classes, before.classes);
  EXPECT_LE(after.bytes, before.bytes + kSlack);
}

TEST_F(Life, TheLibraryLeavesNoWindowClassOfItsOwn) {
  Load();
  for (const Show show : {&Life::ChooseFields, &Life::DescribeInstrument, &Life::SetUpTape}) Use(show);
  // The common controls register theirs for everybody; none is there for this module alone.
  EXPECT_EQ(CountClasses(Module()), CountClasses(GetModuleHandleW(nullptr)));
}

TEST_F(Life, TheHostsActivationContextIsTheOneBefore) {
  HANDLE before = nullptr, after = nullptr;
  GetCurrentActCtx(&before);
  for (const Show show : {&Life::ChooseFields, &Life::DescribeInstrument, &Life::SetUpTape}) Round(show);
  GetCurrentActCtx(&after);
  EXPECT_EQ(after, before);
}

TEST_F(Life, ItCanBeUnloadedOnlyAfterTheLastRelease) {
  Load();
  auto object = Make();
  EXPECT_EQ(CanUnload(), S_FALSE);
  object.reset();
  EXPECT_EQ(CanUnload(), S_OK);
}

}  // namespace
}  // namespace pellora::windows::test
