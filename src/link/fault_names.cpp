#include "link/fault_names.h"

#include <array>

namespace kelvane {

namespace {

struct FaultNameRow {
    const char* Aspen;
    const char* Hazel;
};

// Index is the fault code. Empty texts are real entries.
constexpr std::array<FaultNameRow, 39> faultNames{{
    {"", ""},           {"oc", "oc"},       {"ov", "ov"},       {"oH", "oH"},       {"", "oL"},
    {"oL1", "oL1"},     {"EF", "EF"},       {"", "Reserved"},   {"", "Reserved"},   {"ocA", "ocA"},
    {"ocD", "ocD"},     {"ocn", "ocn"},     {"GF", "Reserved"}, {"", "Reserved"},   {"Lv", "Lv"},
    {"cF1", "cF1"},     {"cF2", "cF2"},     {"", "b.b."},       {"oL2", "oL2"},     {"cFA", "cFA"},
    {"codeE", "codE"},  {"", "Reserved"},   {"cF3.1", "cF3.1"}, {"cF3.2", "cF3.2"}, {"cF3.3", "cF3.3"},
    {"cF3.4", "cF3.4"}, {"cF3.5", "cF3.5"}, {"cF3.6", "cF3.6"}, {"cF3.7", "cF3.7"}, {"HPF.1", "HPF.1"},
    {"HPF.2", "HPF.2"}, {"HPF.3", "HPF.3"}, {"CE10", ""},       {"doG", ""},        {"Serr", ""},
    {"ErEd", ""},       {"PID Error", ""},  {"UDI", ""},        {"PHL", ""},
}};

QString nameOf(int code, const char* FaultNameRow::*column) {
    if (code < 0 || code >= static_cast<int>(faultNames.size())) return {};
    return QString::fromLatin1(faultNames[static_cast<size_t>(code)].*column);
}

}  // namespace

QString FaultNamesAspen(int code) { return nameOf(code, &FaultNameRow::Aspen); }

QString FaultNamesHazel(int code) { return nameOf(code, &FaultNameRow::Hazel); }

}  // namespace kelvane
