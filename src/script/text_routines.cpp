// Rows that work on texts.
#include "quilla/quilla.h"
#include "script/bound_routine.h"
#include "script/own_routines.h"

namespace qsl {

void run_intutf(const Call&) {
  const std::int32_t size = operand_value(3).value.i;
  char* text = static_cast<char*>(output_memory(size, 1, 1));
  if (!text) return;
  const int length = INTUTF(elements<int>(operand_value(0)), operand_value(1).value.i, text, size);
  const std::int32_t kept = length < 0 ? 0 : length;
  text[kept] = 0; // the memory is longer than the output
  write_array_output(operand_variable(2), kString, text, kept);
  write_int_output(operand_variable(4), length);
}

// The text of a variable changes.
void run_upstr(const Call& call) {
  const ScriptValue& v = operand_value(0);
  if (v.type == kString) return UPSTR(elements<char>(v));
  Argument<const char*> text(call, 0); // a CHAR array may have no end
  if (text.copy) {
    UPSTR(text.copy);
    std::memcpy(v.value.data, text.copy, static_cast<std::size_t>(v.count));
  } else {
    UPSTR(elements<char>(v));
  }
  text.finish();
}

namespace {

// Puts the list of operand 0 into a block with room for one more item, which the library appends.
template <typename Append> void append_item(const Call& call, int item_operand, Append append) {
  const ScriptValue& list = operand_value(0);
  if (list.type != kString) return report_mismatch(call.name, call.row->signature, 0);
  Argument<const char*> item(call, item_operand);
  const std::size_t old = std::strlen(text_of(list)), more = std::strlen(item.get());
  char* block = static_cast<char*>(allocate(static_cast<std::int64_t>(old + more) + 1)); // and the separator
  if (block) {
    std::memcpy(block, text_of(list), old + 1);
    append(block, item.get());
    write_array_output(operand_variable(0), kString, block, static_cast<std::int32_t>(std::strlen(block)));
  }
  item.finish();
}

} // namespace

void run_itmcat(const Call& call) { append_item(call, 1, ITMCAT); }

void run_itmncat(const Call& call) {
  append_item(call, 2, [](char* list, const char* item) { ITMNCAT(list, operand_value(1).value.i, item); });
}

} // namespace qsl
