// LangTable: every text that can be translated, held by the splash and read by all windows and boxes. Filled by
// a language file or by the built-in English.
#pragma once

#include <QString>
#include <array>

namespace kelvane {

class LangTable {
   public:
    // Message number 1 to 37 ("MsgStr01" to "MsgStr37"); empty outside.
    QString MsgStr(int number) const;

    std::array<QString, 60> Message;  // [0] is MsgStr01

    static LangTable builtInEnglish();
};

}  // namespace kelvane
