// Statement keywords.
#pragma once

namespace qsl {

inline constexpr int kKeywords = 32;
extern const char* const kKeywordNames[kKeywords];

// Position in the table, or -1.
int find_keyword(const char* name);

// Runs a keyword statement; the tokeniser stands behind the keyword, text is the whole statement.
void run_keyword(int keyword, const char* text);

} // namespace qsl
