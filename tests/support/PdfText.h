#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace quillon {

// The text of a PDF file as pdftotext reads it back, with the columns kept
// and a form feed between pages. A missing pdftotext (poppler-utils, which
// tools/install-deps installs) or an unreadable file fails the test.
std::string pdfText(const std::filesystem::path& pdf);

// A text with every run of blanks made one blank and the ends trimmed, so
// that lines can be compared however the reader spaced the columns.
std::string collapsedBlanks(const std::string& text);

// Whether every non-empty line, blanks collapsed, stands in the text in this
// order; the first one missing is named in `missing`.
bool linesInOrder(const std::string& text, const std::vector<std::string>& lines, std::string& missing);

}  // namespace quillon
