#pragma once

namespace pellora::workbook {

class Document;

/// Fills an empty document with the sample workbook: a quote sheet of all six security types with complete,
/// incomplete and blank rows, the names that mark its columns, a settings sheet with one recorded tape, and sheets to
/// put tapes on. All instruments and figures are invented.
void MakeSample(Document& document);

/// The same with so many instruments and recorded tapes, for measurements.
void MakeLarge(Document& document, int instruments, int tapes);

}  // namespace pellora::workbook
