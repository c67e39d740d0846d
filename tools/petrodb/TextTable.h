#pragma once
// Text in aligned columns for the host's tables, measured in terminal columns
// so that Chinese names line up.
#include <algorithm>
#include <cstdio>
#include <string>
#include <utility>
#include <vector>

namespace petrodb::cli {

// Columns a code point takes on a terminal: two for the wide East Asian
// scripts the network names are written in, one otherwise.
inline int CodePointWidth(char32_t c) {
  const bool wide = (c >= 0x1100 && c <= 0x115F) || (c >= 0x2E80 && c <= 0xA4CF && c != 0x303F) ||
                    (c >= 0xAC00 && c <= 0xD7A3) || (c >= 0xF900 && c <= 0xFAFF) || (c >= 0xFE30 && c <= 0xFE4F) ||
                    (c >= 0xFF00 && c <= 0xFF60) || (c >= 0xFFE0 && c <= 0xFFE6) || (c >= 0x20000 && c <= 0x3FFFD);
  return wide ? 2 : 1;
}

// The terminal width of UTF-8 text; a byte that does not start a well-formed
// sequence counts as one column.
inline std::size_t DisplayWidth(const std::string& text) {
  std::size_t width = 0;
  for (std::size_t i = 0; i < text.size();) {
    const auto b = static_cast<unsigned char>(text[i]);
    const std::size_t length = b < 0x80 ? 1 : (b >> 5) == 0x6 ? 2 : (b >> 4) == 0xE ? 3 : (b >> 3) == 0x1E ? 4 : 0;
    bool valid = length > 0 && i + length <= text.size();
    char32_t c = length == 1 ? b : length == 2 ? (b & 0x1F) : length == 3 ? (b & 0x0F) : (b & 0x07);
    for (std::size_t k = 1; valid && k < length; ++k) {
      const auto next = static_cast<unsigned char>(text[i + k]);
      valid = (next & 0xC0) == 0x80;
      c = (c << 6) | (next & 0x3F);
    }
    if (!valid) {
      ++width;
      ++i;
      continue;
    }
    width += static_cast<std::size_t>(CodePointWidth(c));
    i += length;
  }
  return width;
}

// Rows printed as aligned columns, `separator` apart (two blanks unless said),
// each column to the left or to the right; trailing blanks are dropped.
class TextTable {
 public:
  explicit TextTable(std::vector<bool> rightAligned, std::string separator = "  ")
      : right_(std::move(rightAligned)), separator_(std::move(separator)) {}
  void Add(std::vector<std::string> row) { rows_.push_back(std::move(row)); }
  void Print(const std::string& indent) const {
    std::vector<std::size_t> widths(right_.size(), 0);
    for (const auto& row : rows_)
      for (std::size_t j = 0; j < row.size(); ++j) widths[j] = std::max(widths[j], DisplayWidth(row[j]));
    for (const auto& row : rows_) {
      std::string line = indent;
      for (std::size_t j = 0; j < row.size(); ++j) {
        const std::string pad(widths[j] - DisplayWidth(row[j]), ' ');
        if (j > 0) line += separator_;
        line += right_[j] ? pad + row[j] : row[j] + pad;
      }
      while (!line.empty() && line.back() == ' ') line.pop_back();
      std::printf("%s\n", line.c_str());
    }
  }

 private:
  std::vector<bool> right_;
  std::string separator_;
  std::vector<std::vector<std::string>> rows_;
};

}  // namespace petrodb::cli
