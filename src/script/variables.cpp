#include "script/variables.h"

#include <bit>
#include <cstdlib>
#include <cstring>

#include "script/builtin_functions.h"
#include "script/report.h"

namespace qsl {
namespace {

unsigned bucket_of(const char* name) {
  std::uint32_t hash = 2166136261U;
  for (; *name; ++name) hash = (hash ^ static_cast<unsigned char>(*name)) * 16777619U;
  return hash % kNameBuckets;
}

// Enters a slot into the chain of its name, in slot order.
void chain_in(int index) {
  VariableState& t = interp.variables;
  t.bucket[index] = static_cast<std::uint16_t>(bucket_of(t.slots[index].name));
  std::int16_t* link = &t.chain_head[t.bucket[index]];
  while (*link != 0 && *link - 1 < index) link = &t.chain_next[*link - 1];
  t.chain_next[index] = *link;
  *link = static_cast<std::int16_t>(index + 1);
}

void chain_out(int index) {
  VariableState& t = interp.variables;
  std::int16_t* link = &t.chain_head[t.bucket[index]];
  while (*link != index + 1) link = &t.chain_next[*link - 1];
  *link = t.chain_next[index];
}

int lowest_free_slot() {
  for (int word = 0; word < kSlotWords; ++word) {
    const int index = word * 64 + std::countr_one(interp.variables.used[word]);
    if (index < word * 64 + 64) return index < kVariables ? index : -1;
  }
  return -1;
}

void mark_slot(int index, bool used) {
  const std::uint64_t bit = std::uint64_t{1} << (index % 64);
  std::uint64_t& word = interp.variables.used[index / 64];
  word = used ? word | bit : word & ~bit;
}

} // namespace

void set_name(char* target, const char* name) {
  int n = 0;
  for (; n < kNameLength && name[n]; ++n) target[n] = name[n];
  std::memset(target + n, 0, static_cast<std::size_t>(kNameLength + 1 - n));
}

namespace {

// Most bytes of one block where arbitrary texts run.
constexpr std::int64_t kHarmlessBlock = 1 << 24;

bool is_refused(std::int64_t size) { return size < 0 || (interp.driver.harmless && size > kHarmlessBlock); }

} // namespace

void* allocate(std::int64_t size) {
  void* block = is_refused(size) ? nullptr : std::malloc(static_cast<std::size_t>(size) + 1);
  if (!block) report_error("Not enough memory");
  return block;
}

void* allocate_zeroed(std::int64_t count, int size) {
  void* block = is_refused(count < 0 ? count : count * size)
                    ? nullptr
                    : std::calloc(static_cast<std::size_t>(count) + 1, static_cast<std::size_t>(size));
  if (!block) report_error("Not enough memory");
  return block;
}

void pin_operands(PinnedOperands& pinned, StackState& stack) {
  pinned.outer = interp.variables.pinned;
  pinned.stack = &stack;
  for (int k = 0; k < stack.count; ++k) {
    const ScriptValue& v = stack.entries[k];
    const bool stands = v.type == kAlias && v.value.index >= 0 && owns_memory(variable(v.value.index).type);
    pinned.memory[k] = stands ? variable(v.value.index).value.data : nullptr;
  }
  interp.variables.pinned = &pinned;
}

namespace {

// Gives memory that is about to be freed to a waiting operand that needs it. False if there is none.
bool hand_over(const ScriptValue& v) {
  for (const PinnedOperands* p = interp.variables.pinned; p; p = p->outer) {
    for (int k = 0; k < p->stack->count; ++k) {
      ScriptValue& waiting = p->stack->entries[k];
      if (p->memory[k] != v.value.data || waiting.type != kAlias) continue;
      waiting.type = v.type;
      waiting.ndim = v.ndim;
      waiting.count = v.count;
      waiting.dims = v.dims;
      waiting.value = v.value;
      return true;
    }
  }
  return false;
}

} // namespace

void free_value(ScriptValue& v) {
  if (owns_memory(v.type) && !(interp.variables.pinned && hand_over(v))) {
    std::free(v.value.data);
    if (v.ndim > 1) std::free(v.dims);
  }
  v.type = kFree;
  v.ndim = 0;
  v.count = 0;
  v.dims = nullptr;
  v.value.d = 0.0;
}

bool copy_value(ScriptValue& target, const ScriptValue& source) {
  target.type = source.type;
  target.ndim = source.ndim;
  target.count = source.count;
  target.dims = nullptr;
  target.value = source.value;
  if (!owns_memory(source.type)) return true;
  const std::int64_t size = std::int64_t{source.count} * element_size(source.type);
  target.value.data = allocate(size);
  if (target.value.data && source.ndim > 1) {
    const int bytes = source.ndim * static_cast<int>(sizeof(std::int32_t));
    target.dims = static_cast<std::int32_t*>(allocate(bytes));
    if (target.dims) std::memcpy(target.dims, source.dims, static_cast<std::size_t>(bytes));
  }
  if (!target.value.data || (source.ndim > 1 && !target.dims)) {
    std::free(target.value.data);
    set_scalar(target, kFree);
    return false;
  }
  std::memcpy(target.value.data, source.value.data, static_cast<std::size_t>(size));
  if (source.type == kString) static_cast<char*>(target.value.data)[size] = 0;
  return true;
}

bool set_string(ScriptValue& v, const char* text, std::int64_t length) {
  char* copy = static_cast<char*>(allocate(length));
  if (!copy) return false;
  std::memcpy(copy, text, static_cast<std::size_t>(length));
  copy[length] = 0;
  v.type = kString;
  v.ndim = 1;
  v.count = static_cast<std::int32_t>(length);
  v.dims = nullptr;
  v.value.data = copy;
  return true;
}

bool set_string(ScriptValue& v, const char* text) {
  return set_string(v, text ? text : "", text ? static_cast<std::int64_t>(std::strlen(text)) : 0);
}

int find_slot(const char* name, int level) {
  const VariableState& t = interp.variables;
  const bool everywhere = is_system_name(name);
  for (int link = t.chain_head[bucket_of(name)]; link != 0; link = t.chain_next[link - 1]) {
    const ScriptValue& v = t.slots[link - 1];
    if (v.type != kFree && (everywhere || v.level == level) && std::strcmp(v.name, name) == 0) return link - 1;
  }
  return -1;
}

int find_variable(const char* name) {
  const int index = find_slot(name, interp.variables.level);
  if (index < 0 || variable(index).type != kAlias) return index;
  const int target = variable(index).value.index;
  return target >= 0 && slot_in_use(target) ? target : -1;
}

KnownName known_name(const char* text) {
  KnownName name;
  set_name(name.text, text);
  name.bucket = static_cast<std::uint16_t>(bucket_of(name.text));
  name.system = is_system_name(text);
  return name;
}

int find_known(const KnownName& name) {
  const VariableState& t = interp.variables;
  for (int link = t.chain_head[name.bucket]; link != 0; link = t.chain_next[link - 1]) {
    const ScriptValue& v = t.slots[link - 1];
    if (!same_name(v.name, name.text)) continue;
    if ((v.level != t.level && !name.system) || v.type == kFree) continue;
    if (v.type != kAlias) return link - 1;
    const int target = v.value.index;
    return target >= 0 && slot_in_use(target) ? target : -1;
  }
  return -1;
}

int new_variable(const char* name, int level) {
  const int index = lowest_free_slot();
  if (index < 0) {
    report_error("Maximal number of variables is reached");
    return -1;
  }
  ScriptValue& v = variable(index);
  set_int(v, 0);
  v.level = static_cast<std::int8_t>(level);
  set_name(v.name, name);
  mark_slot(index, true);
  chain_in(index);
  return index;
}

void rename_variable(int index, const char* name) {
  chain_out(index);
  set_name(variable(index).name, name);
  chain_in(index);
}

void release_slot(int index) {
  chain_out(index);
  mark_slot(index, false);
  free_value(variable(index));
}

void free_variable(int index) {
  if (index >= 0 && slot_in_use(index)) release_slot(index);
}

void move_value(ScriptValue& target, ScriptValue& value) {
  free_value(target);
  target.type = value.type;
  target.ndim = value.ndim;
  target.count = value.count;
  target.dims = value.dims;
  target.value = value.value;
  set_scalar(value, kFree);
}

void free_level(int level) {
  for (int word = 0; word < kSlotWords; ++word) {
    for (std::uint64_t used = interp.variables.used[word]; used != 0; used &= used - 1) {
      const int index = word * 64 + std::countr_zero(used);
      if (variable(index).level == level) release_slot(index);
    }
  }
}

int store_value(ScriptValue& value, int index) {
  if (find_function(value.name) >= 0) {
    report_error_text("Reserved identifier", value.name);
    return -1;
  }
  if (index < 0) index = new_variable(value.name, interp.variables.level);
  if (index < 0) return -1;
  move_value(variable(index), value);
  return index;
}

} // namespace qsl
