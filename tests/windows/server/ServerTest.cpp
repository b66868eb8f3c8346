#include "LoadedServer.h"

namespace pellora::windows::test {
namespace {

class Server : public LoadedServer {};

TEST_F(Server, MakesObjectsOfItsClass) { EXPECT_TRUE(Make()); }

TEST_F(Server, RefusesAnotherClassAndClearsTheOutput) {
  void* output = this;
  EXPECT_EQ(GetClassObject(IID_IUnknown, IID_IClassFactory, &output), CLASS_E_CLASSNOTAVAILABLE);
  EXPECT_EQ(output, nullptr);
}

TEST_F(Server, RefusesANullOutput) {
  EXPECT_EQ(GetClassObject(__uuidof(::cPellora), IID_IClassFactory, nullptr), E_POINTER);
}

TEST_F(Server, RefusesAnotherInterfaceOfItsFactory) {
  void* output = this;
  EXPECT_EQ(GetClassObject(__uuidof(::cPellora), IID_IDispatch, &output), E_NOINTERFACE);
  EXPECT_EQ(output, nullptr);
}

TEST_F(Server, IsNotAggregated) {
  const auto outer = Factory();
  void* output = this;
  EXPECT_EQ(Factory()->CreateInstance(outer.get(), IID_IUnknown, &output), CLASS_E_NOAGGREGATION);
  EXPECT_EQ(output, nullptr);
}

TEST_F(Server, CanBeUnloadedBeforeAndAfterItWasUsed) {
  EXPECT_EQ(CanUnload(), S_OK);
  Make();
  EXPECT_EQ(CanUnload(), S_OK);
}

TEST_F(Server, StaysLoadedWhileAnObjectLives) {
  const auto object = Make();
  EXPECT_EQ(CanUnload(), S_FALSE);
}

TEST_F(Server, StaysLoadedWhileItIsLocked) {
  Factory()->LockServer(TRUE);
  EXPECT_EQ(CanUnload(), S_FALSE);
  Factory()->LockServer(FALSE);
  EXPECT_EQ(CanUnload(), S_OK);
}

TEST_F(Server, AFailedRequestForAnInterfaceLeavesNoObjectBehind) {
  void* output = this;
  EXPECT_EQ(Factory()->CreateInstance(nullptr, IID_IClassFactory, &output), E_NOINTERFACE);
  EXPECT_EQ(output, nullptr);
  EXPECT_EQ(CanUnload(), S_OK);
}

TEST_F(Server, AnObjectIsOneToItsCallersWhateverTheInterface) {
  const auto object = Make();
  const auto errors = object.As<ISupportErrorInfo>();
  ASSERT_TRUE(errors);
  EXPECT_EQ(errors.As<IUnknown>().get(), object.As<IUnknown>().get());
  EXPECT_EQ(errors.As<IDispatch>().get(), static_cast<IDispatch*>(object.get()));
}

TEST_F(Server, TellsThatItsInterfaceHasRichErrors) {
  const auto errors = Make().As<ISupportErrorInfo>();
  EXPECT_EQ(errors->InterfaceSupportsErrorInfo(__uuidof(_cPellora)), S_OK);
  EXPECT_EQ(errors->InterfaceSupportsErrorInfo(IID_IClassFactory), S_FALSE);
}

TEST_F(Server, TwoObjectsCanBeLetGoInEitherOrder) {
  auto first = Make();
  auto second = Make();
  first.reset();
  EXPECT_EQ(second->UnloadfrmMaster(), S_OK);
  second.reset();
  EXPECT_EQ(CanUnload(), S_OK);
}

}  // namespace
}  // namespace pellora::windows::test
