#include "dbaccess/DataObject.h"

namespace petrodb {

FieldReader& FieldReader::operator()(const char* column, std::vector<double>& values) {
  if (!ok_) return *this;
  Variant v;
  if (!db_.GetFieldValue(column, v))
    Fail(column);
  else
    VariantToDoubleArray(v, values);
  return *this;
}

FieldWriter& FieldWriter::operator()(const char* column, const std::vector<double>& values) {
  Variant v;
  if (!values.empty() || empty_ == EmptyArray::ZeroLength)
    DoubleArrayToVariant(values.data(), static_cast<int>(values.size()), v);
  db_.SetFieldValue(column, v);
  return *this;
}

}  // namespace petrodb
