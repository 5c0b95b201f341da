// Whom an engine asks and tells, and in which words. Handed to each engine that speaks; both outlive it.
#pragma once

#include "base/operator.h"
#include "localisation/lang_table.h"

namespace kelvane {

struct Voice {
    Operator& person;
    const LangTable& lang;

    QString text(Message message) const { return lang.MsgStr(message); }
};

}  // namespace kelvane
