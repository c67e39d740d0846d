#include "seismic/SeismicCodecs.h"

#include <charconv>
#include <locale>
#include <sstream>

#include "dbaccess/SqlText.h"
#include "petrodb/seismic/SegyFormat.h"

namespace petrodb::seismic {
namespace {

// printf's "%g" / "%f" in the C locale.
void AppendNumber(std::string& out, double value, std::chars_format format) {
  char buffer[400];
  const auto end = std::to_chars(buffer, buffer + sizeof buffer, value, format, 6).ptr;
  out.append(buffer, end);
}

// The pieces of `text` between `separator`s (an empty text has none).
std::vector<std::string> Split(const std::string& text, char separator) {
  std::vector<std::string> pieces;
  if (text.empty()) return pieces;
  std::size_t start = 0;
  for (;;) {
    const std::size_t end = text.find(separator, start);
    pieces.push_back(text.substr(start, end == std::string::npos ? std::string::npos : end - start));
    if (end == std::string::npos) return pieces;
    start = end + 1;
  }
}

}  // namespace

std::string EncodePairs(const std::vector<double>& first, const std::vector<double>& second) {
  std::string text;
  for (std::size_t i = 0; i < first.size() && i < second.size(); ++i) {
    AppendNumber(text, first[i], std::chars_format::general);
    text += ',';
    AppendNumber(text, second[i], std::chars_format::general);
    text += ';';
  }
  return text;
}

void DecodePairs(const std::string& text, std::vector<double>& first, std::vector<double>& second) {
  std::size_t start = 0;
  for (std::size_t end; (end = text.find(';', start)) != std::string::npos; start = end + 1) {
    const std::string piece = text.substr(start, end - start);
    const std::size_t comma = piece.find(',');
    first.push_back(sql::CAtof(piece.substr(0, comma)));
    second.push_back(comma == std::string::npos ? 0.0 : sql::CAtof(piece.substr(comma + 1)));
  }
}

std::string EncodeProfilePoints(const std::vector<double>& x, const std::vector<double>& y) {
  std::string text;
  for (std::size_t i = 0; i < x.size() && i < y.size(); ++i) {
    AppendNumber(text, x[i], std::chars_format::fixed);
    text += ',';
    AppendNumber(text, y[i], std::chars_format::fixed);
    text += ',';
  }
  if (!text.empty()) text.pop_back();
  return text;
}

void DecodeProfilePoints(const std::string& text, std::vector<double>& x, std::vector<double>& y) {
  const auto items = Split(text, ',');
  for (std::size_t k = 0; k + 1 < items.size(); k += 2) {
    x.push_back(sql::CAtof(items[k]));
    y.push_back(sql::CAtof(items[k + 1]));
  }
}

std::string JoinNames(const std::vector<std::string>& names) {
  std::string text;
  for (std::size_t i = 0; i < names.size(); ++i) text += (i ? "," : "") + names[i];
  return text;
}

void SplitNames(const std::string& text, std::vector<std::string>& names) {
  for (auto& name : Split(text, ',')) names.push_back(std::move(name));
}

std::vector<double> EncodeSticks(const std::vector<FaultStick>& sticks, int& counter) {
  std::vector<double> values;
  for (const auto& stick : sticks) {
    ++counter;
    for (std::size_t i = 0; i < stick.X.size() && i < stick.Y.size() && i < stick.Z.size(); ++i)
      values.insert(values.end(), {static_cast<double>(counter), stick.X[i], stick.Y[i], stick.Z[i]});
  }
  return values;
}

std::vector<FaultStick> DecodeSticks(const std::vector<double>& values) {
  std::vector<FaultStick> sticks;
  KeyChanges<int> number;
  for (std::size_t i = 0; i + 4 <= values.size(); i += 4) {
    if (number.Next(static_cast<int>(values[i]))) sticks.emplace_back();
    sticks.back().X.push_back(values[i + 1]);
    sticks.back().Y.push_back(values[i + 2]);
    sticks.back().Z.push_back(values[i + 3]);
  }
  return sticks;
}

}  // namespace petrodb::seismic

// ---- the SEG-Y layout ----

SegyFormat::SegyFormat() {
  binaryFields["SampleInterval"] = {3217, 2};
  binaryFields["NumberOfSamples"] = {3221, 2};
  binaryFields["DataFormatCode"] = {3225, 2};
  traceFields["LineNumber"] = {9, 4};
  traceFields["CDPNumber"] = {21, 4};
  traceFields["TraceIdentificationCode"] = {29, 2};
  traceFields["StartTime"] = {105, 2};
  traceFields["XCoordinate"] = {81, 4};
  traceFields["YCoordinate"] = {85, 4};
}

std::string SegyFormat::ToText() const {
  std::ostringstream out;
  out.imbue(std::locale::classic());
  out << textHeaderLength << ' ' << binaryHeaderLength << ' ' << (flag ? 1 : 0) << ' ' << binaryFields.size() << ' '
      << traceFields.size() << ' ';
  for (const auto* fields : {&binaryFields, &traceFields})
    for (const auto& [name, pos] : *fields) out << name << ' ' << pos.position << ' ' << pos.width << "  ";
  return out.str();
}

bool SegyFormat::ReadText(const std::string& text) {
  std::istringstream in(text);
  in.imbue(std::locale::classic());
  std::size_t counts[2] = {0, 0};
  if (!(in >> textHeaderLength >> binaryHeaderLength >> flag >> counts[0] >> counts[1])) return false;
  std::map<std::string, SegyFieldPos>* maps[2] = {&binaryFields, &traceFields};
  for (int m = 0; m < 2; ++m) {
    for (std::size_t i = 0; i < counts[m]; ++i) {
      std::string name;
      SegyFieldPos pos;
      if (!(in >> name >> pos.position >> pos.width)) return false;
      (*maps[m])[name] = pos;
    }
  }
  return true;
}
