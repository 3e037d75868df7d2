// LIST: the tokeniser stands behind the keyword.
#pragma once

namespace qsl {

void run_list();

} // namespace qsl
