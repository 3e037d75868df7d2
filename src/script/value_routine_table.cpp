// The table of value routines by the type of their result.
#include "quilla/quilla.h"
#include "script/bound_routine.h"
#include "script/name_index.h"
#include "script/own_routines.h"

namespace qsl {

// Pictures of dialogs: a script tells no parent, they stand in the one made last.
template <auto library> struct BelowNewest;
template <typename... P, int (*library)(int, P...)> struct BelowNewest<library> {
  static int call(P... arguments) { return library(0, arguments...); }
};
template <auto library> inline constexpr auto below_newest = BelowNewest<library>::call;

// clang-format off
constexpr RoutineRow kValueRoutines[kValueRoutineCount] = {
    // Result SHORT
    bound<"BITSI2", "I,H,I,H,I", BITSI2>(),
    // Result DOUBLE
    bound<"FITSFLT", "S", FITSFLT>(),
    bound<"GETVER", "", GETVER>(),
    bound<"GWGFLT", "I", GWGFLT>(),
    bound<"GWGSCL", "I", GWGSCL>(),
    bound<"GWGTBF", "I,I,I", GWGTBF>(),
    bound<"X2DPOS", "X,X", X2DPOS>(),
    never("X3DABS", "X,Y,Z"),
    never("X3DPOS", "X,Y,Z"),
    never("X3DREL", "X,Y,Z"),
    bound<"XINVRS", "I", XINVRS>(),
    bound<"XPOSN", "X", XPOSN>(),
    bound<"Y2DPOS", "X,X", Y2DPOS>(),
    never("Y3DABS", "X,Y,Z"),
    never("Y3DPOS", "X,Y,Z"),
    never("Y3DREL", "X,Y,Z"),
    bound<"YINVRS", "I", YINVRS>(),
    bound<"YPOSN", "X", YPOSN>(),
    never("Z3DPOS", "X,Y,Z"),
    // Result STRING
    bound<"DWGFIL", "S,S,S", DWGFIL>(),
    bound<"DWGTXT", "S,S", DWGTXT>(),
    own("FITSSTR", "S", run_fitsstr),
    bound<"GETALF", "", GETALF>(),
    bound<"GETDSP", "", GETDSP>(),
    bound<"GETFIL", "", GETFIL>(),
    bound<"GETMFL", "", GETMFL>(),
    bound<"GETMIX", "S", GETMIX>(),
    bound<"GETSHF", "S", GETSHF>(),
    bound<"GETVLT", "", GETVLT>(),
    bound<"GWGFIL", "I", GWGFIL>(),
    bound<"GWGTBS", "I,I,I", GWGTBS>(),
    bound<"GWGTXT", "I", GWGTXT>(),
    bound<"ITMSTR", "S,I", ITMSTR>(),
    // Result INT
    bound<"BITSI4", "I,I,I,I,I", BITSI4>(),
    bound<"CLOSFL", "I", CLOSFL>(),
    bound<"CSRKEY", "", CSRKEY>(),
    own("CSRPOS", "I,I", run_csrpos),
    bound<"DBFINI", "", DBFINI>(),
    bound<"DWGBUT", "S,I", DWGBUT>(),
    bound<"DWGERR", "", DWGERR>(),
    bound<"DWGLIS", "S,S,I", DWGLIS>(),
    bound<"FCHA", "X,I,U", FCHA>(),
    bound<"FILSIZ", "S,U,U", FILSIZ>(),
    bound<"FILTYP", "S", FILTYP>(),
    bound<"FITSHDU", "I", FITSHDU>(),
    bound<"FITSIMG", "AR,I", FITSIMG>(counted_bytes(1, 2)),
    bound<"FITSOPN", "S", FITSOPN>(),
    bound<"FITSTYP", "S", FITSTYP>(),
    bound<"FITSVAL", "S", FITSVAL>(),
    bound<"FLEN", "X,I", FLEN>(),
    bound<"GETANG", "", GETANG>(),
    bound<"GETBLK", "", GETBLK>(),
    bound<"GETCLR", "", GETCLR>(),
    bound<"GETDFL", "", GETDFL>(),
    bound<"GETHGT", "", GETHGT>(),
    bound<"GETHNM", "", GETHNM>(),
    bound<"GETLEV", "", GETLEV>(),
    bound<"GETLIN", "", GETLIN>(),
    bound<"GETLIT", "X,X,X,X,X,X", GETLIT>(),
    bound<"GETPLV", "", GETPLV>(),
    bound<"GETPAT", "", GETPAT>(),
    bound<"GETTYP", "", GETTYP>(),
    own("GETUNI", "", run_getuni),
    bound<"GETWID", "", GETWID>(),
    bound<"GETXID", "S", GETXID>(),
    bound<"GMXALF", "S,U,U", GMXALF>(),
    bound<"GWGATT", "I,S", GWGATT>(),
    bound<"GWGBOX", "I", GWGBOX>(),
    bound<"GWGBUT", "I", GWGBUT>(),
    bound<"GWGGUI", "", GWGGUI>(),
    bound<"GWGINT", "I", GWGINT>(),
    bound<"GWGLIS", "I", GWGLIS>(),
    bound<"GWGTBI", "I,I,I", GWGTBI>(),
    bound<"GWGXID", "I", GWGXID>(),
    bound<"INCDAT", "I,I,I", INCDAT>(),
    bound<"INDRGB", "X,X,X", INDRGB>(),
    bound<"INTCHA", "I,U", INTCHA>(),
    bound<"INTLEN", "I", INTLEN>(),
    bound<"INTRGB", "X,X,X", INTRGB>(),
    bound<"ITMCNT", "S", ITMCNT>(),
    absent("LDIMG", "S,HR,I,I)"),
    bound<"NLMESS", "S", NLMESS>(),
    bound<"NLNUMB", "X,I", NLNUMB>(),
    bound<"NWKDAY", "I,I,I", NWKDAY>(),
    own("NXLEGN", "S", run_nxlegn),
    bound<"NXPIXL", "I,I", NXPIXL>(),
    bound<"NXPOSN", "X", NXPOSN>(),
    own("NYLEGN", "S", run_nylegn),
    bound<"NYPIXL", "I,I", NYPIXL>(),
    bound<"NYPOSN", "X", NYPOSN>(),
    bound<"NZPOSN", "X", NZPOSN>(),
    own("OPENFL", "S,I,I", run_openfl),
    bound<"PDFBUF", "AR,I", PDFBUF>(counted(1, 2)),
    bound<"POSIFL", "I,I", POSIFL>(),
    bound<"RBFPNG", "AR,I", RBFPNG>(counted(1, 2)),
    bound<"READFL", "I,AR,I", READFL>(counted_bytes(2, 3)),
    bound<"SKIPFL", "I,I", SKIPFL>(),
    bound<"TELLFL", "I", TELLFL>(),
    bound<"WGAPP", "I,S", WGAPP>(),
    bound<"WGAPPB", "I,BR,I,I", WGAPPB>(counted(2, 3, 4)),
    bound<"WGBAS", "I,S", WGBAS>(),
    bound<"WGBOX", "I,S,I", WGBOX>(),
    bound<"WGBUT", "I,S,I", WGBUT>(),
    bound<"WGCMD", "I,S,S", WGCMD>(),
    bound<"WGDLIS", "I,S,I", WGDLIS>(),
    bound<"WGDRAW", "I", WGDRAW>(),
    bound<"WGFIL", "I,S,S,S", WGFIL>(),
    bound<"WGICON", "S,I,I,S", below_newest<WGICON>>(),
    bound<"WGIMG", "S,BR,I,I", below_newest<WGIMG>>(counted(2, 3, 4)),
    bound<"WGINI", "S", WGINI>(),
    bound<"WGLAB", "I,S", WGLAB>(),
    bound<"WGLIS", "I,S,I", WGLIS>(),
    bound<"WGLTXT", "I,S,S,I", WGLTXT>(),
    bound<"WGOK", "I", WGOK>(),
    bound<"WGPBAR", "I,X,X,X", WGPBAR>(),
    bound<"WGPBUT", "I,S", WGPBUT>(),
    bound<"WGPICON", "S,I,I,S", below_newest<WGPICON>>(),
    bound<"WGPIMG", "S,BR,I,I", below_newest<WGPIMG>>(counted(2, 3, 4)),
    bound<"WGPOP", "I,S", WGPOP>(),
    bound<"WGPOPB", "I,BR,I,I", WGPOPB>(counted(2, 3, 4)),
    bound<"WGQUIT", "I", WGQUIT>(),
    bound<"WGSCL", "I,S,X,X,X,I", WGSCL>(),
    bound<"WGSEP", "I", WGSEP>(),
    bound<"WGSTXT", "I,I,I", WGSTXT>(),
    bound<"WGTBL", "I,I,I", WGTBL>(),
    bound<"WGTXT", "I,S", WGTXT>(),
    bound<"WINID", "", WINID>(),
    bound<"WRITFL", "I,AR,I", WRITFL>(counted_bytes(2, 3)),
    bound<"ZBFINI", "", ZBFINI>(),
};
// clang-format on

namespace {

constexpr NameIndex<kValueRoutineCount> kIndex([](int i) { return std::string_view(kValueRoutines[i].name); });

} // namespace

int find_value_routine(const char* name) { return kIndex.find(name); }

} // namespace qsl
