#include "petrodb/Variant.h"

Variant::Variant(std::vector<double> values)
    : values_(std::make_shared<const std::vector<double>>(std::move(values))) {}

void DoubleArrayToVariant(const double* values, int count, Variant& out) {
  if (count < 0 || (!values && count > 0)) {
    out.Clear();
    return;
  }
  out = Variant(std::vector<double>(values, values + count));
}

bool VariantToDoubleArray(const Variant& in, std::vector<double>& out) {
  if (in.IsNull()) {
    out.clear();
    return false;
  }
  out.assign(in.Data(), in.Data() + in.Size());
  return true;
}

void VariantClear(Variant& value) { value.Clear(); }
