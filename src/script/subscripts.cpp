#include "script/subscripts.h"

#include <cstring>

#include "script/evaluator.h"
#include "script/report.h"

namespace qsl {
namespace {

std::int32_t extent_of(const ScriptValue& v, int k) { return v.ndim > 1 ? v.dims[k] : v.count; }

} // namespace

bool check_selection(const ScriptValue& v, const char* name, SubscriptList& list) {
  if (v.type < kString) {
    report_error_text("Non array variable", name);
    return false;
  }
  if (list.number != v.ndim) {
    report_error_text("Mismatch of subscripts in", name);
    return false;
  }
  std::int64_t count = 1;
  for (int k = 0; k < list.number; ++k) {
    const std::int32_t extent = extent_of(v, k);
    const SubscriptKind kind = list.kinds[k];
    if (kind == kWholeExtent || kind == kOpenRange) list.upper[k] = extent - 1;
    // The end mark of a string can be read; an open range of a matrix is first held against the whole count.
    const std::int32_t limit = kind == kIndex && v.type == kString ? extent + 1 : extent;
    const bool beyond = kind == kOpenRange ? list.lower[k] >= v.count : list.upper[k] >= limit;
    if (list.lower[k] < 0 || beyond) {
      report_error_text("Subscript out of range in", name);
      return false;
    }
    if (list.upper[k] < list.lower[k]) {
      report_error_text("Bad subscript range in", name);
      return false;
    }
    count *= list.upper[k] - list.lower[k] + 1;
  }
  list.count = static_cast<std::int32_t>(count);
  return true;
}

SelectionWalk begin_walk(const ScriptValue& v, const SubscriptList& list) {
  SelectionWalk w{};
  w.list = &list;
  std::int64_t stride = 1;
  for (int k = list.number - 1; k >= 0; --k) {
    w.stride[k] = stride;
    w.at[k] = list.lower[k];
    w.flat += stride * list.lower[k];
    stride *= extent_of(v, k);
  }
  return w;
}

void step(SelectionWalk& w) {
  for (int k = w.list->number - 1; k >= 0; --k) {
    if (w.at[k] < w.list->upper[k]) {
      ++w.at[k];
      w.flat += w.stride[k];
      return;
    }
    w.flat -= w.stride[k] * (w.at[k] - w.list->lower[k]);
    w.at[k] = w.list->lower[k];
  }
}

namespace {

// One element as a scalar; characters become INT.
void push_element(const ScriptValue& v, std::int64_t i) {
  const Tag element = element_of(v.type);
  if (element == kChar) return push_int(elements<std::int8_t>(v)[i]);
  ScriptValue* result = push_operand();
  if (!result) return;
  set_scalar(*result, element);
  const int size = element_size(element);
  std::memcpy(&result->value, elements<char>(v) + i * size, static_cast<std::size_t>(size));
}

void push_part(const ScriptValue& v, const SubscriptList& list) {
  ScriptValue* result = push_operand();
  if (!result) return;
  const int size = element_size(v.type);
  char* data = static_cast<char*>(allocate(std::int64_t{list.count} * size));
  if (!data) return clear_stack(operand_count() - 1);
  SelectionWalk walk = begin_walk(v, list);
  for (std::int32_t i = 0; i < list.count; ++i, step(walk))
    std::memcpy(data + std::int64_t{i} * size, elements<char>(v) + walk.flat * size, static_cast<std::size_t>(size));
  result->type = v.type;
  result->ndim = 1;
  result->count = list.count;
  result->value.data = data;
  if (v.type == kString) data[list.count] = 0;
}

} // namespace

void push_selection(int index, const char* name, SubscriptList& list) {
  const ScriptValue& v = variable(index);
  if (!check_selection(v, name, list)) return;
  if (list.count == 1) return push_element(v, begin_walk(v, list).flat);
  push_part(v, list);
}

} // namespace qsl
