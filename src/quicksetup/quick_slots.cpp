#include "quicksetup/quick_slots.h"

#include <algorithm>

namespace kelvane {

namespace {

using enum SlotControl;

// clang-format off
constexpr std::array<SlotRow, SlotCount> Slots{{
    // name       control title                                          unit    Rowan   Aspen   Larch   Hazel   Tilia   Osier   Willow  Yarrow  Sorrel
    {"S1para1",    List,   "Start-up Display Selection",                  "",    {""    , "0003", "0003", "0003", "0003", "0208", "0003", "0003", "0003"}},
    {"S1para2",    List,   "Content of User Defined Unit",                "",    {"0040", "0004", "0004", "0004", "0004", "0209", "0004", "0004", "0004"}},
    {"S1para3",    Edit,   "User Defined Coefficient K",                  "",    {"0041", "0005", "0005", "0005", "0005", "020A", "0005", "0005", "0005"}},
    {"S1para4",    List,   "Control Methods",                             "",    {""    , ""    , "0009", ""    , "000A", ""    , "000A", "000A", "0009"}},
    {"S1para5",    Edit,   "Motor Rated Current",                         "",    {"0034", "0700", "0700", "0700", "0501", "0702", "0700", "0700", "0501"}},
    {"S1para6",    Edit,   "Motor No-Load Current",                       "",    {"0035", "0701", "0701", "0701", "0505", "0703", "0701", "0701", "0505"}},
    {"S1para7",    Whole,  "Number of Motor Poles",                       "",    {""    , ""    , "0704", ""    , "0504", ""    , ""    , ""    , "0504"}},
    {"S2para1",    Edit,   "Maximum Output Frequency",                    "Hz",  {"0003", "0100", "0100", "0100", "0100", "0100", "0100", "0100", "0100"}},
    {"S2para2",    Edit,   "Maximum Voltage Frequency",                   "Hz",  {"0004", "0101", "0101", "0101", "0101", "0101", "0101", "0101", "0101"}},
    {"S2para3",    Edit,   "Maximum Output Voltage",                      "V",   {"0005", "0102", "0102", "0102", "0102", "0102", "0102", "0102", "0102"}},
    {"S2para4",    Edit,   "Mid-Point Frequency",                         "Hz",  {"0006", "0103", "0103", "0103", "0103", "0103", "0103", "0103", "0103"}},
    {"S2para5",    Edit,   "Mid-Point Voltage",                           "V",   {"0007", "0104", "0104", "0104", "0104", "0104", "0104", "0104", "0104"}},
    {"S2para6",    Edit,   "Minimum Output Frequency",                    "Hz",  {"0008", "0105", "0105", "0105", "0105", "0105", "0105", "0105", "0105"}},
    {"S2para7",    Edit,   "Minimum Output Voltage",                      "V",   {"0009", "0106", "0106", "0106", "0106", "0106", "0106", "0106", "0106"}},
    {"S2para8",    Edit,   "Second Mid-Point Frequency",                  "Hz",  {""    , ""    , ""    , ""    , "0107", ""    , ""    , ""    , "0107"}},
    {"S2para9",    Edit,   "Second Mid-Point Voltage",                    "V",   {""    , ""    , ""    , ""    , "0108", ""    , ""    , ""    , "0108"}},
    {"S2para10",   Edit,   "Start Frequency",                             "Hz",  {""    , ""    , ""    , ""    , "0109", ""    , ""    , ""    , "0109"}},
    {"S2para11",   Edit,   "Upper Bound of Output Freq.",                 "",    {"0024", "0107", "0107", "0107", "010A", "0107", "0107", "0107", "010A"}},
    {"S2para12",   Edit,   "Lower Bound of Output Freq.",                 "",    {"0025", "0108", "0108", "0108", "010B", "0108", "0108", "0108", "010B"}},
    {"S2para13",   Edit,   "Acceleration Time1 (Taccel 1)",               "sec", {"000A", "0109", "0109", "0109", "010C", "0109", "0109", "0109", "010C"}},
    {"S2para14",   Edit,   "Deceleration Time1 (Tdecel 1)",               "sec", {"000B", "010A", "010A", "010A", "010D", "010A", "010A", "010A", "010D"}},
    {"S3para1",    List,   "Source of Frequency Command",                 "",    {"0000", "0200", "0200", "0200", "0014", "0200", "0200", "0200", "000E"}},
    {"S3para2",    List,   "Source of Operation Command",                 "",    {"0001", "0201", "0201", "0201", "0015", "0201", "0201", "0201", "000F"}},
    {"S3para3",    List,   "Stop Method",                                 "",    {"0002", "0202", "0202", "0202", "0016", "0202", "0202", "0202", ""}},
    {"S4Outpara1", List,   "Multi-Function Output Relay (RA, RB, RC)",    "",    {"002D", "0305", "0300", "0303", "020B", "0300", "0300", "0300", "020B"}},
    {"S4Outpara2", List,   "Multi-Function Output Terminal (MO1)",        "",    {"002E", "0306", "0301", ""    , "020C", "0301", "0301", "0301", "020C"}},
    {"S4Outpara3", List,   "Multi-Function Output Terminal (MO2)",        "",    {""    , ""    , "0302", ""    , "020D", "0302", ""    , ""    , "020D"}},
    {"S4Outpara4", List,   "Multi-Function Output Terminal (MO3)",        "",    {""    , ""    , "0303", ""    , "020E", "0303", ""    , ""    , "020E"}},
    {"S4Outpara5", List,   "Multi-Function Output Terminal (MO4)",        "",    {""    , ""    , ""    , ""    , ""    , "0304", ""    , ""    , "020F"}},
    {"S4Outpara6", List,   "Multi-Function Output Terminal (MO5)",        "",    {""    , ""    , ""    , ""    , ""    , "0305", ""    , ""    , "0210"}},
    {"S4Outpara7", List,   "Multi-Function Output Terminal (MO6)",        "",    {""    , ""    , ""    , ""    , ""    , "0306", ""    , ""    , ""}},
    {"S4Outpara8", List,   "Multi-Function Output Terminal (MO7)",        "",    {""    , ""    , ""    , ""    , ""    , "0307", ""    , ""    , ""}},
    {"S4Inpara1",  List,   "Multi-Function Input Terminal (MI1)",         "",    {"0026", "0404", "0404", "0404", "0201", "0400", "0404", "0404", "0201"}},
    {"S4Inpara2",  List,   "Multi-Function Input Terminal (MI2)",         "",    {"0027", "0405", "0405", "0405", "0202", "0401", "0405", "0405", "0202"}},
    {"S4Inpara3",  List,   "Multi-Function Input Terminal (MI3)",         "",    {"0028", "0406", "0406", "0406", "0203", "0402", "0406", "0406", "0203"}},
    {"S4Inpara4",  List,   "Multi-Function Input Terminal (MI4)",         "",    {"0029", "0407", "0407", ""    , "0204", "0403", "0407", "0407", "0204"}},
    {"S4Inpara5",  List,   "Multi-Function Input Terminal (MI5)",         "",    {"002A", "0408", "0408", ""    , "0205", "0404", "0408", "0408", "0205"}},
    {"S4Inpara6",  List,   "Multi-Function Input Terminal (MI6)",         "",    {""    , ""    , "0409", ""    , "0206", "0405", ""    , ""    , "0206"}},
    {"S4Inpara7",  List,   "Multi-Function Input Terminal (MI7)",         "",    {""    , ""    , ""    , ""    , ""    , "0406", ""    , ""    , "0207"}},
    {"S4Inpara8",  List,   "Multi-Function Input Terminal (MI8)",         "",    {""    , ""    , ""    , ""    , ""    , "0407", ""    , ""    , "0208"}},
}};
// clang-format on

// Four hexadecimal digits, or nothing.
consteval bool addressesAreWell() {
    for (const SlotRow& slot : Slots)
        for (const std::string_view address : slot.address)
            if (!address.empty() &&
                (address.size() != 4 || address.find_first_not_of("0123456789ABCDEF") != address.npos))
                return false;
    return true;
}
static_assert(addressesAreWell());

}  // namespace

const SlotRow& quickSlot(int slot) { return Slots.at(static_cast<size_t>(slot - 1)); }

QString slotAddress(int slot, Family family) {
    const auto* found = std::find(AllFamilies.begin(), AllFamilies.end(), family);
    if (found == AllFamilies.end()) return {};
    return QString::fromLatin1(quickSlot(slot).address.at(static_cast<size_t>(found - AllFamilies.begin())));
}

QString slotControlName(int slot) {
    const SlotRow& row = quickSlot(slot);
    return QString::fromLatin1(row.name) %
           (row.control == List ? QStringLiteral("ComboBox") : QStringLiteral("LabeledEdit"));
}

}  // namespace kelvane
