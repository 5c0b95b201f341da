#include "shell/monitor_section.h"

namespace kelvane {

void followIdentification(MonitorSession& session, DriveIdentification& identification) {
    QObject::connect(&identification, &DriveIdentification::itemNamesChanged, &session,
                     [&session, &identification] { session.takeItemNames(identification.itemList); });
    QObject::connect(&identification, &DriveIdentification::familyKnown, &session,
                     [&session, &identification] { session.InitialDrive(identification.itemList); });
}

void takeMonitorSection(MonitorSession& session, const MonitorSection& section) {
    session.takeIndexes({.ComboBox1st = section.ComboBox1st,
                         .ComboBox2nd = section.ComboBox2nd,
                         .VrMeterComboBox = section.VrMeterComboBox,
                         .Ch1ComboBox = section.Ch1ComboBox});
}

MonitorSection monitorSection(const MonitorSession& session) {
    const MonitorIndexes indexes = session.indexes();
    return {.ComboBox1st = indexes.ComboBox1st,
            .ComboBox2nd = indexes.ComboBox2nd,
            .VrMeterComboBox = indexes.VrMeterComboBox,
            .Ch1ComboBox = indexes.Ch1ComboBox};
}

}  // namespace kelvane
