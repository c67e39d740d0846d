#pragma once
// A field value that is either null or an array of doubles: the form in which
// whole sample arrays travel to and from double-array columns.
#include <cstddef>
#include <memory>
#include <vector>

#include "petrodb/Export.h"

class PETRODB_API Variant {
 public:
  Variant() = default;  // null
  explicit Variant(std::vector<double> values);

  bool IsNull() const { return !values_; }
  // Number of doubles; 0 for null and for an empty array.
  std::size_t Size() const { return values_ ? values_->size() : 0; }
  const double* Data() const { return values_ ? values_->data() : nullptr; }
  void Clear() { values_.reset(); }

 private:
  // Shared and immutable, so handing a variant to a session copies no samples.
  std::shared_ptr<const std::vector<double>> values_;
};

// Copies `count` doubles into `out` (an array variant; count 0 gives an empty,
// non-null array). A null `values` with a non-zero count gives a null variant.
PETRODB_API void DoubleArrayToVariant(const double* values, int count, Variant& out);
// Copies the variant's doubles into `out`; false (and `out` emptied) for null.
PETRODB_API bool VariantToDoubleArray(const Variant& in, std::vector<double>& out);
PETRODB_API void VariantClear(Variant& value);
