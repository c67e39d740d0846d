#include "dbaccess/Backend.h"

#include <algorithm>
#include <atomic>
#include <cstdlib>
#include <cstring>
#include <cstdint>
#include <new>

#if defined(__linux__)
#include <sys/mman.h>
#endif

#include "dbaccess/SqlText.h"

namespace petrodb::db {

namespace {
#if defined(__linux__)
// Blocks from this size on are mapped memory of their own: they grow by
// remapping their pages, never by copying them, and ask for large pages.
constexpr std::size_t kMapped = std::size_t{1} << 20;
constexpr std::uintptr_t kLargePage = std::uintptr_t{2} << 20;

void AskLargePages(void* block, std::size_t bytes) {
  const auto begin = (reinterpret_cast<std::uintptr_t>(block) + kLargePage - 1) & ~(kLargePage - 1);
  const auto end = (reinterpret_cast<std::uintptr_t>(block) + bytes) & ~(kLargePage - 1);
  if (end > begin) ::madvise(reinterpret_cast<void*>(begin), end - begin, MADV_HUGEPAGE);
}
#endif
}  // namespace

namespace {

// A growing block: mapped memory of its own from kMapped on, heap memory below.
void* Resize(void* block, std::size_t bytes, std::size_t grownBytes) {
#if defined(__linux__)
  if (grownBytes >= kMapped) {
    void* grown = MAP_FAILED;
    if (bytes >= kMapped) {
      grown = ::mremap(block, bytes, grownBytes, MREMAP_MAYMOVE);
    } else {
      grown = ::mmap(nullptr, grownBytes, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
      if (grown != MAP_FAILED && block) {
        std::memcpy(grown, block, bytes);
        std::free(block);
      }
    }
    if (grown == MAP_FAILED) throw std::bad_alloc();
    AskLargePages(grown, grownBytes);
    return grown;
  }
#endif
  void* grown = std::realloc(block, grownBytes);
  if (!grown) throw std::bad_alloc();
  return grown;
}

void Release(void* block, std::size_t bytes) {
#if defined(__linux__)
  if (bytes >= kMapped) {
    ::munmap(block, bytes);
    return;
  }
#endif
  std::free(block);
}

// The blocks a thread's last batches left, for its next ones: a batch of the
// same size as the last then finds its memory in place (fresh pages cost a
// fault and the zeroing of each). Blocks are kept by the size of their values
// (a batch's cells apart from its text). The first 64 MB of what is kept stay
// in place; the used pages past them, a huge batch's, are given back to the
// system lazily: it takes them when it runs short of memory, and otherwise the
// next huge batch finds them there. Pages given back cost something to use
// again, so a batch of ordinary size never meets them.
constexpr std::size_t kSpareBlocks = 4;
constexpr std::size_t kSpareBytes = std::size_t{1} << 30;
constexpr std::size_t kResidentBytes = std::size_t{64} << 20;
constexpr std::size_t kPage = 4096;

// Lets the system take the pages of `block` from `resident` up to `used` back
// whenever it needs them.
void GiveBackLazily(void* block, std::size_t bytes, std::size_t resident, std::size_t used) {
#if defined(__linux__) && defined(MADV_FREE)
  if (bytes < kMapped) return;
  const std::size_t end = std::min(bytes, (used + kPage - 1) / kPage * kPage);
  if (end > resident) ::madvise(static_cast<char*>(block) + resident, end - resident, MADV_FREE);
#else
  (void)block, (void)bytes, (void)resident, (void)used;
#endif
}

struct SpareBlocks {
  struct Block {
    void* data = nullptr;
    std::size_t bytes = 0;
    std::size_t kind = 0;
    std::size_t resident = 0;  // its first bytes, whose pages stay in place
  };
  Block blocks[kSpareBlocks];
  std::size_t total = 0;

  ~SpareBlocks();
  // The largest kept block of the kind; empty when none is.
  Block Take(std::size_t kind) {
    Block* best = nullptr;
    for (Block& b : blocks)
      if (b.data && b.kind == kind && (!best || b.bytes > best->bytes)) best = &b;
    if (!best) return {};
    const Block taken = *best;
    *best = {};
    total -= taken.bytes;
    return taken;
  }
  // Keeps the block in a free place, or in place of a smaller one; false when it is not kept.
  bool Keep(void* data, std::size_t bytes, std::size_t used, std::size_t kind) {
    Block* slot = nullptr;
    for (Block& b : blocks)
      if (!b.data) {
        slot = &b;
        break;
      }
    if (!slot)
      for (Block& b : blocks)
        if (b.bytes < bytes && (!slot || b.bytes < slot->bytes)) slot = &b;
    if (!slot || total - slot->bytes + bytes > kSpareBytes) return false;
    if (slot->data) Release(slot->data, slot->bytes);
    total -= slot->bytes;
    *slot = {};
    std::size_t residentElsewhere = 0;
    for (const Block& b : blocks) residentElsewhere += b.resident;
    const std::size_t budget = kResidentBytes - std::min(kResidentBytes, residentElsewhere);
    const std::size_t resident = std::min(bytes, budget) / kPage * kPage;
    GiveBackLazily(data, bytes, resident, used);
    total += bytes;
    *slot = {data, bytes, kind, resident};
    return true;
  }
};

// Batches freed while the thread ends (after its spare blocks went) free their memory.
thread_local bool t_spareGone = false;
thread_local SpareBlocks t_spare;

SpareBlocks::~SpareBlocks() {
  t_spareGone = true;
  for (Block& b : blocks)
    if (b.data) Release(b.data, b.bytes);
}

}  // namespace

void* GrowPlainBlock(void* block, std::size_t bytes, std::size_t& grownBytes, std::size_t kind) {
  if (!block && !t_spareGone) {
    if (const auto spare = t_spare.Take(kind); spare.data) {
      if (spare.bytes >= grownBytes) {
        grownBytes = spare.bytes;
        return spare.data;
      }
      return Resize(spare.data, spare.bytes, grownBytes);
    }
  }
  return Resize(block, bytes, grownBytes);
}

void FreePlainBlock(void* block, std::size_t bytes, std::size_t used, std::size_t kind) {
  if (!block) return;
  if (t_spareGone || !t_spare.Keep(block, bytes, used, kind)) Release(block, bytes);
}

const PendingRows::Run& PendingRows::RunOf(std::size_t row) const {
  const auto after = std::upper_bound(runs_.begin(), runs_.end(), row,
                                      [](std::size_t r, const Run& run) { return r < run.firstRow; });
  return *(after - 1);
}

std::size_t PendingRows::RunEnd(std::size_t row) const {
  const auto after = std::upper_bound(runs_.begin(), runs_.end(), row,
                                      [](std::size_t r, const Run& run) { return r < run.firstRow; });
  return after == runs_.end() ? rows_ : after->firstRow;
}

std::span<const PendingCell> PendingRows::Cells(std::size_t row) const {
  const Run& run = RunOf(row);
  const std::size_t width = shapes_[run.shape].columns.size();
  return {cells_.data() + (run.firstCell - base_) + (row - run.firstRow) * width, width};
}

void PendingRows::StartRow(const std::string& table) {
  static std::atomic<std::uint64_t> batches{0};
  if (rows_ == 0 && !open_) id_ = ++batches;
  Seal();
  open_ = true;
  following_ = !runs_.empty() && shapes_[runs_.back().shape].table == table;
  if (!following_) openTable_ = table;
  openColumns_.clear();
  openFirst_ = cells_.size();
}

PendingCell* PendingRows::Slot(const char* column) {
  if (!column || !open_) return nullptr;
  const std::size_t k = cells_.size() - openFirst_;
  const PendingCell empty{{0}, 0, CellKind::Null};
  if (following_) {
    const RowShape& previous = shapes_[runs_.back().shape];
    // Distinct from the columns set so far, as the row before had them in this order.
    if (k < previous.columns.size() && previous.columns[k] == column) return &cells_.push_back(empty);
    following_ = false;
    openTable_ = previous.table;
    openColumns_.assign(previous.columns.begin(), previous.columns.begin() + static_cast<std::ptrdiff_t>(k));
  }
  for (std::size_t i = 0; i < openColumns_.size(); ++i)
    if (sql::EqualsIgnoreCase(openColumns_[i], column)) return &(cells_[openFirst_ + i] = empty);
  openColumns_.emplace_back(column);
  return &cells_.push_back(empty);
}

void PendingRows::SetInteger(const char* column, std::int64_t value) {
  if (PendingCell* cell = Slot(column)) PutInteger(*cell, value);
}

void PendingRows::SetReal(const char* column, double value) {
  if (PendingCell* cell = Slot(column)) PutReal(*cell, value);
}

void PendingRows::SetText(const char* column, std::string_view value) {
  if (PendingCell* cell = Slot(column)) PutText(*cell, value);
}

void PendingRows::SetArray(const char* column, const Variant& value) {
  if (PendingCell* cell = Slot(column)) PutArray(*cell, value);
}

void PendingRows::StartRowWith(const std::string& table, const char* const* columns, std::size_t count) {
  StartRow(table);
  if (following_) {
    const std::size_t shape = runs_.back().shape;
    bool same = shape == namedShape_ && namedColumns_.size() == count &&
                std::equal(columns, columns + count, namedColumns_.begin());
    if (!same) {
      const auto& previous = shapes_[shape].columns;
      same = count <= previous.size();
      for (std::size_t k = 0; same && k < count; ++k) same = previous[k] == columns[k];
      if (same) {
        namedShape_ = shape;
        namedColumns_.assign(columns, columns + count);
      }
    }
    if (same) {
      const PendingCell empty{{0}, 0, CellKind::Null};
      for (std::size_t k = 0; k < count; ++k) cells_.push_back(empty);
      return;
    }
  }
  for (std::size_t k = 0; k < count; ++k) Slot(columns[k]);
}

void PendingRows::Seal() {
  if (!open_) return;
  open_ = false;
  const std::size_t count = cells_.size() - openFirst_;
  const std::size_t before = runs_.empty() ? static_cast<std::size_t>(-1) : runs_.back().shape;
  std::size_t shape = before;
  if (following_) {
    if (count != shapes_[before].columns.size()) {
      // Fewer columns than the row before: a shape of their own.
      RowShape prefix{shapes_[before].table, {}};
      prefix.columns.assign(shapes_[before].columns.begin(),
                            shapes_[before].columns.begin() + static_cast<std::ptrdiff_t>(count));
      shapes_.push_back(std::move(prefix));
      shape = shapes_.size() - 1;
    }
  } else if (runs_.empty() || shapes_[before].table != openTable_ || shapes_[before].columns != openColumns_) {
    shapes_.push_back(RowShape{openTable_, openColumns_});
    shape = shapes_.size() - 1;
  }
  if (shape != before) runs_.push_back(Run{rows_, base_ + openFirst_, shape});
  ++rows_;
}

void PendingRows::LetGoSealed() {
  const std::size_t sealed = open_ ? openFirst_ : cells_.size();
  cells_.erase_front(sealed);
  openFirst_ -= open_ ? sealed : 0;
  base_ += sealed;
  text_.clear();
  arrays_.clear();
  letGo_ = rows_;
}

void PendingRows::clear() {
  shapes_.clear();
  runs_.clear();
  rows_ = 0;
  letGo_ = base_ = 0;
  cells_.clear();
  text_.clear();
  arrays_.clear();
  open_ = following_ = false;
  openColumns_.clear();
  namedColumns_.clear();
  namedShape_ = static_cast<std::size_t>(-1);
}

void PendingRows::swap(PendingRows& other) noexcept {
  std::swap(shapes_, other.shapes_);
  std::swap(runs_, other.runs_);
  std::swap(rows_, other.rows_);
  std::swap(id_, other.id_);
  std::swap(letGo_, other.letGo_);
  std::swap(base_, other.base_);
  cells_.swap(other.cells_);
  text_.swap(other.text_);
  std::swap(arrays_, other.arrays_);
  std::swap(open_, other.open_);
  std::swap(following_, other.following_);
  std::swap(openFirst_, other.openFirst_);
  std::swap(openTable_, other.openTable_);
  std::swap(openColumns_, other.openColumns_);
  std::swap(namedColumns_, other.namedColumns_);
  std::swap(namedShape_, other.namedShape_);
}

std::string InsertText(const RowShape& row, std::string (*column)(const std::string&),
                       std::string (*mark)(std::size_t)) {
  if (row.columns.empty()) return "insert into " + row.table + " default values";
  std::string text = "insert into " + row.table + " (";
  std::string marks;
  for (std::size_t k = 0; k < row.columns.size(); ++k) {
    if (k) {
      text += ", ";
      marks += ", ";
    }
    text += column ? column(row.columns[k]) : row.columns[k];
    marks += mark ? mark(k) : std::string("?");
  }
  return text + ") values (" + marks + ")";
}

}  // namespace petrodb::db
