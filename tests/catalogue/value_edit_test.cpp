// From the words of a drive to texts, through the value editor, and back to a word.
#include "catalogue/value_edit.h"

#include <gtest/gtest.h>

#include "bench/decimal_sep.h"
#include "bench/scripted_operator.h"
#include "catalogue/parameter_record.h"

namespace kelvane {
namespace {

TEST(ParameterRecord, GivesAddressNumberAndPlacesOfEveryFamily) {
    EXPECT_EQ(addressText(10, 7), "0A07");
    EXPECT_EQ(addressText(2, 105), "0269");
    for (const Family family : AllFamilies) {
        const bool rowan = family == Family::Rowan;
        EXPECT_EQ(parameterNumberText(family, 0, 0), rowan ? "0" : "00-00");
        EXPECT_EQ(parameterNumberText(family, 2, 105), rowan ? "105" : "02-105");
        EXPECT_EQ(parameterNumberText(family, 1, 4), rowan ? "0260" : "01-04");
        const bool aspen = family == Family::Aspen;
        EXPECT_EQ(placesOf(family, 0x0300), aspen ? 0 : 3);
        EXPECT_EQ(placesOf(family, 0xFD01), aspen ? 2 : 1);
        EXPECT_EQ(placesOf(family, 0xFC00), 0);
    }
}

TEST(ParameterRecord, KeepsTheSignOfTiliaInsideThePlaces) {
    EXPECT_EQ(valueText(Family::Hazel, 0, 0, 3), "0.000");
    EXPECT_EQ(valueText(Family::Larch, 0x80, 65535, 0), "65535");
    EXPECT_EQ(valueText(Family::Tilia, 0x80, 0xFFFB, 1), "-.5");
    EXPECT_EQ(valueText(Family::Tilia, 0, 0xFFFB, 1), "6553.1");
    EXPECT_EQ(valueText(Family::Tilia, 0x80, 0xFFFB, 2), "0.-5");
    const std::pair<const char*, const char*> words[] = {{"60.00", "1770"}, {"1.5", "000F"},
                                                         {"7", "0007"},     {"-1.2", "FFF4"},
                                                         {"-.5", "FFFB"},   {"65535", "FFFF"}};
    for (const char* sep : {".", ","}) {
        const UsingDecimalSep machine{QString(sep)};
        for (const auto& [text, word] : words)
            EXPECT_EQ(registerWordOf(QString(text).replace(".", sep)), QString(word)) << text;
    }
    for (const char* none : {"0.-5", "", "1.2.3"}) EXPECT_FALSE(registerWordOf(none));
}

class ValueEditor : public ::testing::Test {
   protected:
    ValueEditor() {
        lang.Message[22] = "not legal";
        lang.Message[27] = "too small";
        lang.Message[28] = "too large";
    }
    ValueTexts texts{"01-00", "Max. Output Freq", "Hz  ", "50.00", "60.00", "50.00", "400.00", 2};
    ScriptedOperator person;
    LangTable lang;
};

TEST_F(ValueEditor, IsGivenWhatTheTextsSay) {
    for (const char* sep : {".", ","}) {
        const UsingDecimalSep machine{QString(sep)};
        ValueTexts shown = texts;
        for (QString* text : {&shown.value, &shown.defaultValue, &shown.min, &shown.max})
            text->replace(".", sep);
        const ValueEdit edit = valueEditOf(shown);
        EXPECT_EQ(edit.PrInforVrLabel, "01-00: Max. Output Freq (" % shown.min % " ~ " % shown.max % " )");
        EXPECT_EQ(edit.InputMin, 5000);
        EXPECT_EQ(edit.InputMax, 40000);
        EXPECT_EQ(edit.InputDefault, 6000);
    }
    texts.between = "-";
    EXPECT_EQ(valueEditOf(texts).PrInforVrLabel, "01-00: Max. Output Freq (50.00 - 400.00 )");
    const auto fromList = [](const char* min, const char* max, int places = 0) {
        return valueEditOf({.value = "5", .min = min, .max = max, .places = places}).fromList;
    };
    EXPECT_TRUE(fromList("0", "9"));
    EXPECT_FALSE(fromList("0", "10") || fromList("-1", "9") || fromList("0", ".9", 1));
    const ValueEdit edit = valueEditOf({.value = "5", .min = "3", .max = "7"});
    EXPECT_EQ(inputItems(edit).join(' '), "3 4 5 6 7");
    EXPECT_EQ(inputItemIndex(edit), 2);
}

TEST_F(ValueEditor, AcceptsWhatFitsAndTellsWhyNot) {
    ValueEdit edit = valueEditOf(texts);
    const auto check = [&](const char* text) {
        edit.Text = text;
        return CheckInputValue(edit, person, lang);
    };
    // Keeps: an empty text and an illegal one are refused under different titles.
    person.expectBox("not legal", "Error");
    for (int box = 0; box < 3; ++box) person.expectBox("not legal", "Error Message");
    person.expectBox("too small", "Error");
    person.expectBox("too large", "Error");
    EXPECT_EQ(check(""), InputVerdict::Stay);
    for (const char* typed : {"1-2", "60,5", "99999999999", "49.99", "400.01"}) {
        EXPECT_EQ(check(typed), InputVerdict::SelectAll) << typed;
        EXPECT_EQ(edit.Text, "50.00");
    }
    EXPECT_FALSE(edit.InputAccepted);
    edit.InputMin = 0;
    for (const auto& [typed, shown] :
         {std::pair{"1.5", "1.50"}, {"61.239", "61.23"}, {"400", "400.00"}, {".", "0.00"}}) {
        edit.InputAccepted = false;
        EXPECT_EQ(check(typed), InputVerdict::Close) << typed;
        EXPECT_TRUE(edit.InputAccepted);
        EXPECT_EQ(edit.Text, shown);
    }
    person.expectEdit({});
    EXPECT_FALSE(askValue(texts, person));
    person.expectEdit([](ValueEdit& asked) {
        asked.Text = "55.00";
        asked.InputAccepted = true;
    });
    EXPECT_EQ(askValue(texts, person), QString("55.00"));
}

}  // namespace
}  // namespace kelvane
