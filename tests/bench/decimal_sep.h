// Runs a test on a machine with another decimal separator.
#pragma once

#include "link/number_text.h"

namespace kelvane {

class UsingDecimalSep {
   public:
    explicit UsingDecimalSep(const QString& separator) : m_before(DecimalSep) { DecimalSep = separator; }
    ~UsingDecimalSep() { DecimalSep = m_before; }
    UsingDecimalSep(const UsingDecimalSep&) = delete;
    UsingDecimalSep& operator=(const UsingDecimalSep&) = delete;

   private:
    QString m_before;
};

}  // namespace kelvane
