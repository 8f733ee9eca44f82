#include "lists/page_style.h"

namespace kolibri {

// The sheet has slips: a closing brace too many, "=" for ":", "," for ";", "back" for "black". Each of them
// shapes what the browser makes of the page, and the office knows its lists by that look, so they stay. The
// same holds for the rules that only the screen has: the shade helps the eye on the screen and costs toner on
// paper.
const std::vector<StyleRule>& styleRules() {
    constexpr bool kScreenOnly = true;
    static const std::vector<StyleRule> rules{
        {u"BODY {align: center; font: 10pt arial, verdana, tahoma, sans-serif; width: 940px; color: #000000; "
         u"background-color: #ffffff}"},
        {u"#kopf_links {width: 180px; height: 130px; float: left; text-align: center; vertical-align: "
         u"middle;}"},
        {u"#kopf_mitte {width: auto; height: 50px}"},
        {u"#kopf_rechts {width: 180px; height: 130px; float: right; text-align: center; vertical-align: "
         u"middle;}"},
        {u"#kopf_anschrift {width: auto; height: 30px; margin: 30px 0 10px 0; text-align: center; "
         u"vertical-align: middle;}"},
        {u"#copyright {height: 1px; border-top: 1px solid #909090; margin-top: 5px;}"},
        {u"#tn_daten {clear: both;}"},
        {u"h1 {color: black; text-align: center; font-size: 1.3em; font-weight: bold; line-height: 1.4; "
         u"margin-top: 10px;}}"},
        {u"h3 {color: black; text-align: center; font-size: 1.0em; line-height: 1.4; margin-top: 10px;}"},
        {u".datum {color: back; text-align: center; font-size: 1.0em; margin-top: 10px;}"},
        {u".UE1_ME_LZ_AG {text-align: left; font-size: 14px; font-weight: bold; margin: 10px 0;}"},
        {u".woche {text-align: left; font-size: 14px; font-weight: normal; margin: 0 0 20px 0;}"},
        {u".anmerkung_vorher {text-align: left; font-size: 14px; font-weight: normal; margin: 10px 0 20px "
         u"0;}"},
        {u".anmerkung_nachher {text-align: left; font-size: 14px; font-weight: normal; margin: 20px 0 20px "
         u"0;}"},
        {u".tabelle {text-align: left; font-weight: normal;}"},
        {u".UE1_vorher {text-align: left; font-size: 16px; font-weight: normal; margin: 30px 0 10px 0;}"},
        {u"#box_table {margin-left: 40px; }"},
        {u"/* CSS Style für Tabelle */"},
        {u"TABLE.Tpt {width: {W}pt; border-collapse: collapse; margin-left: 0; margin-right: auto;}"},
        {u"TABLE.Wochenplan {width: {W}pt; border-collapse: collapse; margin-left: 0; margin-right: auto; "
         u"margin-bottom: 30px; page-break-after: always;}"},
        {u"TABLE.Wochenplan_ohneSU {width: {W}pt; border-collapse: collapse; margin-left: 0; margin-right: "
         u"auto; margin-bottom: 30px;}"},
        {u"TABLE.Seitenumbruch {page-break-before: always; width: {W}pt; border-collapse: collapse; "
         u"margin-left: 0; margin-right: auto;}"},
        {u"TABLE.SeitenumbruchAfter {page-break-after: always; width: {W}pt; border-collapse: collapse; "
         u"margin-left: 0; margin-right: auto;}"},
        {u"TR.KopfZeile TD {font-size: {S}px; vertical-align: top; height: 30px; font-weight: {B}; "
         u"font-style: {I};}",
         kFontKopfZeile},
        {u"TR.KopfZeile_ME_LZ_AG TD {font-size: {S}px; vertical-align: middle; text-align: center; height: "
         u"30px; font-weight: {B}; font-style: {I};}",
         kFontKopfZeile},
        {u"TR.KopfZeile_Wochenplan {font-size: {S}px; vertical-align: middle; text-align: center; height: "
         u"30px; font-weight: {B}; font-style: {I};}",
         kFontWochenplanKopfZeile},
        {u"TR.ME_LZ_AG_Daten1 TD {font-size: {S}px; vertical-align: middle; height: 25px; font-weight: {B}; "
         u"font-style: {I};}",
         kFontZeile},
        {u"TR.ME_LZ_AG_Daten2 TD {font-size: {S}px; vertical-align: middle; height: 25px; font-weight: {B}; "
         u"font-style: {I}; background-color: #EFEFEF;}",
         kFontZeile},
        {u"TR.Wochenplan_Daten1 TD {font-size: {S}px; vertical-align: middle; height: 25px; font-weight: "
         u"{B}; font-style: {I};}",
         kFontWochenplanZeile},
        {u"TR.Wochenplan_Daten2 TD {font-size: {S}px; vertical-align: middle; height: 25px; font-weight: "
         u"{B}; font-style: {I}; background-color: #EFEFEF;}",
         kFontWochenplanZeile},
        {u"TR.SummenZeile_ME_LZ_AG TD {font-size: {S}px; vertical-align: middle; text-align: center; height: "
         u"30px; font-weight: {B}; font-style: {I};}",
         kFontSummenZeile},
        {u"TR.Seitenumbruch_vorher {page-break-before: always; font-size: {S}px; vertical-align: middle; "
         u"height: 25px; font-weight: {B}; font-style: {I};}",
         kFontZeile},
        {u"TR.Seitenumbruch_nachher {page-break-after: always; font-size: {S}px; vertical-align: middle; "
         u"height: 25px; font-weight: {B}; font-style: {I};}",
         kFontZeile},
        {u"TR TD {padding-left: 6px; padding-right: 6px; border: 1px solid #808080}"},
        {u"TR.Zeile2 TD {font-size: 12px; font-style = italic}"},
        {u"TR#Ueberschrift_KL_MN { line-height: 30px; }"},
        {u"TR.Liste_Stammdaten TD {font-size: {S}px; vertical-align: middle; height: 20px; font-weight: {B}; "
         u"font-style: {I};}",
         kFontZeile},
        {u"TR.Liste_MensaJeSchülerS TD {font-size: {S}px; vertical-align: middle; height: 20px; font-weight: "
         u"{B}; font-style: {I};}",
         kFontZeile, kScreenOnly},
        {u"TR.Liste_MensaJeSchülerM TD {font-size: {S}px; vertical-align: middle; height: 30px; font-weight: "
         u"{B}; font-style: {I};}",
         kFontZeile, kScreenOnly},
        {u"TR.Liste_MensaJeSchülerL TD {font-size: {S}px; vertical-align: middle; height: 40px; font-weight: "
         u"{B}; font-style: {I};}",
         kFontZeile, kScreenOnly},
        {u"TR.Stammdaten1 TD {vertical-align: top; border-top: 1px solid #888; border-right: 1px solid #888; "
         u"border-bottom: 1px solid #888; border-left: 1px solid #888; font-size: {S}px; vertical-align: "
         u"top, font-weight: {B}; font-style: {I};}",
         kFontZeile, kScreenOnly},
        {u"TR.Stammdaten111 TD {vertical-align: top; border-top: 1px solid #888; border-right: 1px solid "
         u"#888; border-bottom: 0px solid #888; border-left: 1px solid #888; font-size: {S}px; "
         u"vertical-align: top, font-weight: {B}; font-style: {I};}",
         kFontZeile, kScreenOnly},
        {u"TR.Stammdaten112 TD {vertical-align: top; border-top: 0px solid #888; border-right: 1px solid "
         u"#888; border-bottom: 1px solid #888; border-left: 1px solid #888; font-size: {S}px; "
         u"vertical-align: top, font-weight: {B}; font-style: {I};}",
         kFontZeile, kScreenOnly},
        {u"TR.Stammdaten113 TD {vertical-align: top; border-top: 0px solid #888; border-right: 1px solid "
         u"#888; border-bottom: 0px solid #888; border-left: 1px solid #888; font-size: {S}px; "
         u"vertical-align: top, font-weight: {B}; font-style: {I};}",
         kFontZeile, kScreenOnly},
        {u"TR.Stammdaten2 TD {vertical-align: top; border-top: 1px solid #888; border-right: 1px solid #888; "
         u"border-bottom: 1px solid #888; border-left: 1px solid #888; font-size: {S}px; vertical-align: "
         u"top; background-color: #EFEFEF; font-weight: {B}; font-style: {I};}",
         kFontZeile, kScreenOnly},
        {u"TR.StammdatenGV11 TD {border-top: 1px solid #888; border-right: 1px solid #888; border-bottom: "
         u"0px solid #888; border-left: 1px solid #888; font-size: {S}px; vertical-align: top; font-weight: "
         u"{B}; font-style: {I};}",
         kFontZeile, kScreenOnly},
        {u"TR.StammdatenGV12 TD {border-top: 0px solid #888; border-right: 1px solid #888; border-bottom: "
         u"0px solid #888; border-left: 1px solid #888; font-size: {S}px; vertical-align: top; font-weight: "
         u"{B}; font-style: {I};}",
         kFontZeile, kScreenOnly},
        {u"TR.StammdatenGV13 TD {border-top: 0px solid #888; border-right: 1px solid #888; border-bottom: "
         u"1px solid #888; border-left: 1px solid #888; font-size: {S}px; vertical-align: top; font-weight: "
         u"{B}; font-style: {I};}",
         kFontZeile, kScreenOnly},
        {u"TR.StammdatenGV21 TD {border-top: 1px solid #888; border-right: 1px solid #888; border-bottom: "
         u"0px solid #888; border-left: 1px solid #888; font-size: {S}px; vertical-align: top; "
         u"background-color: #EFEFEF; font-weight: {B}; font-style: {I};}",
         kFontZeile, kScreenOnly},
        {u"TR.StammdatenGV22 TD {border-top: 0px solid #888; border-right: 1px solid #888; border-bottom: "
         u"0px solid #888; border-left: 1px solid #888; font-size: {S}px; vertical-align: top; "
         u"background-color: #EFEFEF; font-weight: {B}; font-style: {I};}",
         kFontZeile, kScreenOnly},
        {u"TR.StammdatenGV23 TD {border-top: 0px solid #888; border-right: 1px solid #888; border-bottom: "
         u"1px solid #888; border-left: 1px solid #888; font-size: {S}px; vertical-align: top; "
         u"background-color: #EFEFEF; font-weight: {B}; font-style: {I};}",
         kFontZeile, kScreenOnly},
        {u"THEAD {display: table-header-group;}"},
        {u"THEAD { line height: 40px; }"},
        {u"TABLE.STD_Basic {width: 170pt; border-collapse: collapse; margin-left: 0; margin-right: auto;}"},
        {u"TR.STD_KopfZeile TD {line-height: 21.5pt; font-size: {S}px; vertical-align: top; height: 30px; "
         u"font-weight: {B}; font-style: {I};}",
         kFontKopfZeile},
        {u"TR.STD_1 TD {line-height: 21.5pt; font-size: {S}px; vertical-align: top, height: 25px; "
         u"font-weight: {B}; font-style: {I};}",
         kFontZeile},
        {u"TR.STD_2 TD {line-height: 21.5pt; font-size: {S}px; vertical-align: top; background-color: "
         u"#EFEFEF; font-weight: {B}; font-style: {I};}",
         kFontZeile},
        {u"TR.STD_Summe TD {line-height: 21.5pt; font-size: {S}px; vertical-align: top, height: 25px; "
         u"font-weight: bold; font-style: {I};}",
         kFontZeile},
        {u"TABLE.AG {width: 100%; border-collapse: collapse; border: 0; margin-left: 0;}"},
        {u"TR.ArbeitsgruppeKopf TD {font-size: 14px; vertical-align: middle; height: 25px; border: 0;}"},
        {u"TD.Liste_ME_LZ_AG_KZ10 { border-left: 3px solid #808080; border-right: 3px solid #808080; "
         u"border-top: 3px solid #808080}"},
        {u"TD.Liste_ME_LZ_AG_KZ11 { border-right: 3px solid #808080; border-top: 3px solid #808080}"},
        {u"TD.Liste_ME_LZ_AG_KZ20 { border-left: 3px solid #808080; border-bottom: 3px solid #808080}"},
        {u"TD.Liste_ME_LZ_AG_KZ21 { border-bottom: 3px solid #808080; }"},
        {u"TD.Liste_ME_LZ_AG_KZ22 { border-right: 3px solid #808080; border-bottom: 3px solid #808080}"},
        {u"TD.Liste_ME_LZ_AG_1 { border-left: 3px solid #808080; }"},
        {u"TD.Liste_ME_LZ_AG_2 { border-right: 3px solid #808080; }"},
        {u"TD.Liste_ME_LZ_AG_SZ1 { border-left: 3px solid #808080; border-right: 3px solid #808080; "
         u"border-top: 3px solid #808080; border-bottom: 3px solid #808080}"},
        {u"TD.Liste_ME_LZ_AG_SZ2 { border-right: 3px solid #808080; border-top: 3px solid #808080; "
         u"border-bottom: 3px solid #808080}"},
        {u"TABLE.Belegungen {width: {W}pt; border-collapse: collapse; margin-left: 0; margin-right: auto; "
         u"background-color: #FFFFFF; }"},
        {u"TD.BelegungToMax { font-weight: bold; color: red; }"},
        {u".WP_Zusatztext { margin-bottom: 10px; }"},
    };
    return rules;
}

} // namespace kolibri
