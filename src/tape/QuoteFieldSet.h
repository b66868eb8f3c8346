#pragma once

namespace pellora {

/// Which of the ten quote fields a workbook carries.
struct QuoteFieldSet {
  bool AskPrice = false;
  bool AskSize = false;
  bool BidPrice = false;
  bool BidSize = false;
  bool ClosePrice = false;
  bool HighTick = false;
  bool LastPrice = false;
  bool LastSize = false;
  bool LowTick = false;
  bool Volume = false;
};

}  // namespace pellora
