#pragma once

#include <memory>
#include <string>
#include <vector>

#include "core/Error.h"
#include "forms/Control.h"
#include "forms/Form.h"
#include "platform/headless/Headless.h"
#include "tests/Raised.h"

namespace pellora::test {

/// A peer that writes down what it is told.
class RecordingPeer : public ControlPeer {
 public:
  explicit RecordingPeer(std::vector<Aspect>& told, int* focused = nullptr) : m_told(told), m_focused(focused) {}
  void Changed(Aspect aspect) override { m_told.push_back(aspect); }
  void Focus() override {
    if (m_focused) ++*m_focused;
  }

 private:
  std::vector<Aspect>& m_told;
  int* m_focused;
};

/// A form without content whose events a test can hook.
class PlainForm : public Form {
 public:
  explicit PlainForm(Toolkit& toolkit, std::string_view name = "frmPlain") : Form(toolkit, name) {}
  using Form::BorderStyle;
  using Form::CancelButton;
  using Form::DefaultButton;
  using Form::Layout;

  std::function<void()> Loads, Activates, Unloads;
  std::function<void(std::int16_t&, std::int16_t&)> QueriesUnload;
  int loads = 0, unloads = 0;
  std::vector<std::int16_t> unloadModes;

 protected:
  void OnLoad() override {
    ++loads;
    if (Loads) Loads();
  }
  void OnActivate() override {
    if (Activates) Activates();
  }
  void OnQueryUnload(std::int16_t& cancel, std::int16_t& mode) override {
    unloadModes.push_back(mode);
    if (QueriesUnload) QueriesUnload(cancel, mode);
  }
  void OnUnload() override {
    ++unloads;
    if (Unloads) Unloads();
  }
};

}  // namespace pellora::test
