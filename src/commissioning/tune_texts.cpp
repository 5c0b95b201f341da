#include "commissioning/tune_texts.h"

namespace kelvane {

namespace {

// Label numbers of the language file's section, and the texts where it has none.
struct TextRow {
    int label;
    const char* text;
};
constexpr TextRow Entries[] = {
    {6, "-- Please Select --"}, {7, "01: Auto Tuning R1"}, {8, "02: Auto Tuning R1 No-load Test"}};
constexpr TextRow Descriptions[] = {
    {13, "The motor does not turn. The resistance R1 is measured and set automatically."},
    {14,
     "The motor turns. AC motor drive should be unloaded and the values of Pr.07.01 and Pr.07.05 will be set "
     "automatically."}};
constexpr TextRow TwoMotorEntries[] = {{9, "-- Please Select --"},
                                       {10, "01: Dynamic Test (Motor turns without load)"},
                                       {11, "02: Static Test (Motor stands still)"},
                                       {12, "03: Static Test (Shaft locked axis - 3 phase)"}};
constexpr TextRow TwoMotorDescriptions[] = {
    {15, "The motor turns and must be without load. All motor data are measured and set automatically."},
    {16, "The motor does not turn. Enter the no-load current before the test."},
    {17,
     "The motor does not turn. Lock the shaft before the test. The three phases are measured one after the "
     "other."}};

template <size_t N>
QStringList textsOf(const TextRow (&rows)[N], const TextGroup& labels) {
    QStringList texts;
    for (const TextRow& row : rows)
        texts += row.label <= labels.filled ? labels.at(row.label) : QString::fromLatin1(row.text);
    return texts;
}

}  // namespace

TuneTexts tuneTexts(const LangTable& lang, bool twoMotors) {
    const TextGroup& labels = lang.form(FormSection::AutoTuning).Label;
    TuneTexts texts;
    texts.entries = twoMotors ? textsOf(TwoMotorEntries, labels) : textsOf(Entries, labels);
    texts.descriptions = QStringList{QString()};
    texts.descriptions += twoMotors ? textsOf(TwoMotorDescriptions, labels) : textsOf(Descriptions, labels);
    return texts;
}

}  // namespace kelvane
