// Routines with rules beyond a call of the library.
#pragma once

#include "script/binding.h"

namespace qsl {

void run_quiini(const Call& call);
void run_quifin(const Call& call);
void run_metafl(const Call& call);
void run_unit(const Call& call);
void run_legini(const Call& call);
void run_leglin(const Call& call);
void run_legend(const Call& call);
void run_nxlegn(const Call& call);
void run_nylegn(const Call& call);
void run_piegrf(const Call& call);
void run_grafr(const Call& call); // one count for both arrays
void run_csrpos(const Call& call);
void run_fitsstr(const Call& call);
void run_getuni(const Call& call);
void run_incqsl(const Call& call);
void run_intutf(const Call& call);
void run_upstr(const Call& call);
void run_openfl(const Call& call);
void run_itmcat(const Call& call);
void run_itmncat(const Call& call);
void run_rpixls(const Call& call);
void run_rpxrow(const Call& call);
void run_spline(const Call& call);
void run_splmod(const Call& call);
void run_wpixls(const Call& call);
void run_wpxrow(const Call& call);

} // namespace qsl
