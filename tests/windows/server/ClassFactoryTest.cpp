#include "platform/windows/ole/ClassFactory.h"

#include <gtest/gtest.h>

#include "platform/windows/server/ComPellora.h"

namespace pellora::windows {
namespace {

using ole::BStr;
using ole::ComPtr;

// This program carries no type library, so an object cannot be made in it: a failure of initialisation, as it were.
class FailingCreation : public testing::Test {
 protected:
  FailingCreation() {
    ComPtr<IClassFactory> factory;
    ole::ClassFactory<ComPellora>::Create(IID_IClassFactory, reinterpret_cast<void**>(factory.put()));
    SetErrorInfo(0, nullptr);
    code = factory->CreateInstance(nullptr, __uuidof(_cPellora), &output);
    GetErrorInfo(0, info.put());
  }
  void* output = this;
  HRESULT code = S_OK;
  ComPtr<IErrorInfo> info;
};

TEST_F(FailingCreation, AnswersTheComponentFailure) {
  EXPECT_EQ(code, static_cast<HRESULT>(0x80040064));
  EXPECT_EQ(output, nullptr);
}

TEST_F(FailingCreation, TellsItsCreatorSourceAndDescription) {
  ASSERT_TRUE(info);
  BStr source, description;
  info->GetSource(source.put());
  info->GetDescription(description.put());
  EXPECT_EQ(source.Text(), "Pellora.cPellora.Class_Initialize");
  EXPECT_EQ(description.Text(), "cPellora component failure");
}

TEST_F(FailingCreation, KeepsNothingLoaded) { EXPECT_EQ(ole::ModuleReference::Count(), 0); }

}  // namespace
}  // namespace pellora::windows
