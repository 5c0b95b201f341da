#include "commissioning/tune_texts.h"

namespace kelvane {

namespace {

// Where the language file has no section for the window.
constexpr const char* Texts[] = {
    "-- Please Select --",
    "01: Auto Tuning R1",
    "02: Auto Tuning R1 No-load Test",
    "-- Please Select --",
    "01: Dynamic Test (Motor turns without load)",
    "02: Static Test (Motor stands still)",
    "03: Static Test (Shaft locked axis - 3 phase)",
    "The motor does not turn. The resistance R1 is measured and set automatically.",
    ("The motor turns. AC motor drive should be unloaded and the values of Pr.07.01 and Pr.07.05 will be set "
     "automatically."),
    "The motor turns and must be without load. All motor data are measured and set automatically.",
    "The motor does not turn. Enter the no-load current before the test.",
    ("The motor does not turn. Lock the shaft before the test. The three phases are measured one after the "
     "other."),
};

QStringList textsOf(const LangTable& lang, int first, int count) {
    QStringList texts;
    for (int field = first; field < first + count; ++field) texts += tuneText(lang, field);
    return texts;
}

}  // namespace

QString tuneText(const LangTable& lang, int field) {
    constexpr int FirstLabel = 6;  // key number of field 1
    const TextGroup& labels = lang.form(FormSection::AutoTuning).Label;
    const int label = FirstLabel - 1 + field;
    return label <= labels.filled ? labels.at(label) : QString::fromLatin1(Texts[field - 1]);
}

TuneTexts tuneTexts(const LangTable& lang, bool twoMotors) {
    TuneTexts texts;
    texts.entries = twoMotors ? textsOf(lang, 4, 4) : textsOf(lang, 1, 3);
    texts.descriptions = QStringList{QString()} + (twoMotors ? textsOf(lang, 10, 3) : textsOf(lang, 8, 2));
    return texts;
}

}  // namespace kelvane
