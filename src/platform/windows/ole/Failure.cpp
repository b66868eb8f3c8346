#include "platform/windows/ole/Failure.h"

#include <cstdio>

namespace pellora::ole {
namespace {

std::string CodeText(HRESULT code) {
  char text[16];
  std::snprintf(text, sizeof text, " (0x%08lX)", static_cast<unsigned long>(code));
  return text;
}

std::string DescriptionFor(std::int32_t number, HRESULT code, const std::string& given) {
  if (!given.empty()) return given;
  const std::string standard(StandardDescription(number));
  return number < 0 ? standard + CodeText(code) : standard;
}

std::string TextOf(BSTR text) { return text ? Narrow({text, SysStringLen(text)}) : std::string(); }

Error FromRecord(ExcepInfo& record) {
  record.Complete();
  const EXCEPINFO& info = record.get();
  // A record carries either a code or one of the old small numbers; one with neither still is a failure.
  const HRESULT code = info.scode != 0 ? info.scode : info.wCode != 0 ? CodeFromNumber(info.wCode) : E_FAIL;
  const std::int32_t number = NumberFromCode(code);
  return Error(number, TextOf(info.bstrSource), DescriptionFor(number, code, TextOf(info.bstrDescription)));
}

Error FromThread(HRESULT code) {
  const std::int32_t number = NumberFromCode(code);
  BStr source, description;
  ComPtr<IErrorInfo> info;
  if (GetErrorInfo(0, info.put()) == S_OK && info) {
    info->GetSource(source.put());
    info->GetDescription(description.put());
  }
  return Error(number, source.Text(), DescriptionFor(number, code, description.Text()));
}

void Fill(EXCEPINFO& info, const Error& error) {
  BStr source(error.Source()), description(error.Description());
  info = {};
  info.scode = CodeFromNumber(error.Number());
  info.bstrSource = source.detach();
  info.bstrDescription = description.detach();
}

void SetThreadError(const Error& error, REFIID interfaceId, std::string_view standIn) {
  ComPtr<ICreateErrorInfo> record;
  if (FAILED(CreateErrorInfo(record.put()))) return;
  BStr source(error.Source().empty() ? standIn : error.Source()), description(error.Description());
  record->SetGUID(interfaceId);
  record->SetSource(source.get());
  record->SetDescription(description.get());
  if (const auto info = record.As<IErrorInfo>()) SetErrorInfo(0, info.get());
}

}  // namespace

Error ErrorFromCode(HRESULT code, ExcepInfo* info) {
  return code == DISP_E_EXCEPTION && info ? FromRecord(*info) : FromThread(code);
}

void Check(HRESULT code) {
  if (FAILED(code)) throw ErrorFromCode(code);
}

HRESULT ReportCaught(EXCEPINFO* info) noexcept {
  try {
    const Error error = CaughtError();
    if (!info) return CodeFromNumber(error.Number());
    Fill(*info, error);
    return DISP_E_EXCEPTION;
  } catch (...) {
    return E_OUTOFMEMORY;
  }
}

HRESULT ReportCaught(REFIID interfaceId, std::string_view source) noexcept {
  try {
    const Error error = CaughtError();
    SetThreadError(error, interfaceId, source);
    return CodeFromNumber(error.Number());
  } catch (...) {
    return E_OUTOFMEMORY;
  }
}

}  // namespace pellora::ole
