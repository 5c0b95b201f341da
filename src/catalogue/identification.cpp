#include "catalogue/identification.h"

#include "catalogue/model_tables.h"
#include "link/number_text.h"

namespace kelvane {

namespace {

constexpr auto Hazel = static_cast<quint8>(Family::Hazel);
constexpr auto Osier = static_cast<quint8>(Family::Osier);
constexpr auto Willow = static_cast<quint8>(Family::Willow);
constexpr quint8 HazelGroups = 10;  // an Osier code with this many groups is a Hazel

}  // namespace

DriveIdentification::DriveIdentification(RequestScheduler& link, GroupNameTable& groupNames,
                                         const Voice& voice)
    : m_link(link), m_groupNames(groupNames), m_voice(voice) {
    using Text = const QString&;
    using Bytes = const QByteArray&;
    m_link.onReply(0, [this](Text, Bytes data) { onFamily(data); });
    m_link.onReply(1, [this](Text, Bytes data) { onModelCode(data); });
    m_link.onReply(21, [this](Text, Bytes data) { onGroupName(data); });
    m_link.ParamRead.fixedParaName = [](int group, int number) { return fixedParaName(group, number); };
    installVariantTasks();
}

void DriveIdentification::onFamily(const QByteArray& RxData) {
    DriveStatusRecord& status = m_link.DriveStatus;
    status.DriveFamily = byteAt(RxData, 4);
    if (!familyProfile(status.DriveFamily)) {
        refuse(status.DriveFamily);
        return;
    }
    status.GroupCount = byteAt(RxData, 7);
    if (status.DriveFamily == Osier && status.GroupCount == HazelGroups) status.DriveFamily = Hazel;
    enableMenus();
    takeVersion(wordAt(RxData, 8));
    InitialDrive();
    m_link.DriveIdentified = 1;
}

void DriveIdentification::refuse(quint8 code) {
    m_link.DriveIdentified = 0;
    Q_EMIT m_link.identificationFailed();
    m_voice.person.tell(QStringLiteral("ID code = %1. Can't identify this drive !").arg(code),
                        QStringLiteral("Error"));
}

void DriveIdentification::enableMenus() {
    const FamilyProfile* profile = familyProfile(m_link.DriveStatus.DriveFamily);
    m_link.Labels.AutoTuningEnabled = profile->AutoTuningEnabled;
    m_link.Labels.PIDControlEnabled = profile->PIDControlEnabled;
}

void DriveIdentification::takeVersion(quint16 word) {
    const quint8 family = m_link.DriveStatus.DriveFamily;
    if (family == Hazel) return;  // its version comes from a register of its own
    QString text = InsertDecimalPoint(QString::number(word), family == Willow ? 3 : 2);
    // Kept: Willow's fifth character goes, "1234" reads "1.23".
    if (family == Willow) text.remove(4, 1);
    m_link.Labels.VersionVrLabel = text;
}

void DriveIdentification::InitialDrive() {
    ComStatusVrIndicatorShown = true;
    DriveStatusRecord& status = m_link.DriveStatus;
    if (const FamilyProfile* profile = familyProfile(status.DriveFamily)) {
        m_link.Labels.DriveVrLabel = QString::fromLatin1(profile->DriveVrLabel);
        writeStatusItems(*profile, status);
        refreshItemNames();
    }
    Q_EMIT familyKnown(status.DriveFamily);
    m_link.notifyChanged();
}

void DriveIdentification::refreshItemNames() {
    const FamilyProfile* profile = familyProfile(m_link.DriveStatus.DriveFamily);
    if (!profile) return;
    itemList = itemNames(*profile, m_voice.lang.commonItemNames,
                         m_voice.lang.familyItemNames(m_link.DriveStatus.DriveFamily));
    infoCells = infoGridCells(*profile, itemList);
    Q_EMIT itemNamesChanged();
}

void DriveIdentification::onGroupName(const QByteArray& RxData) {
    DriveStatusRecord& status = m_link.DriveStatus;
    const FamilyProfile* profile = familyProfile(status.DriveFamily);
    if (status.DriveFamily == Hazel) {
        m_link.Labels.VersionVrLabel = InsertDecimalPoint(QString::number(wordAt(RxData, 4)), 1);
    } else if (profile && profile->groupNamesFromDrive) {
        m_groupNames.storeReportedName(status.DriveFamily, status.GroupIndex, dataText(RxData, 1, 16));
        if (status.GroupIndex < status.GroupCount) {
            ++status.GroupIndex;
            m_link.push(21);
            return;
        }
    }
    m_link.push(1);
    m_link.push(11);
    status.GroupIndex = 0;
}

// ProcessIdInfo: what is printed on the plate of that model.
void DriveIdentification::onModelCode(const QByteArray& RxData) {
    DriveStatusRecord& status = m_link.DriveStatus;
    status.DriveIdCode = byteAt(RxData, 5);
    const ModelIdentity model = modelIdentity(status.DriveFamily, status.DriveIdCode);
    m_link.Labels.RatedVoltageVrLabel = model.RatedVoltageVrLabel;
    m_link.Labels.RatedCurrentVrLabel = model.RatedCurrentVrLabel;
    m_link.Labels.HPVrLabel = model.HPVrLabel;
}

void DriveIdentification::installVariantTasks() {
    using Text = const QString&;
    using Bytes = const QByteArray&;
    m_link.onReply(50, [this](Text, Bytes data) {
        m_link.Labels.DriveVrLabel = dataText(data, 1, 16);
        m_link.Labels.HPVrLabel = dataText(data, 21, 16);
    });
    m_link.onReply(51, [this](Text, Bytes data) {
        m_link.DriveStatus.GroupIndex = static_cast<quint8>(wordAt(data, 4));
        m_link.DriveStatus.GroupCount = static_cast<quint8>(wordAt(data, 6));
    });
    m_link.onReply(
        52, [this](Text, Bytes data) { m_link.Labels.VersionVrLabel = QString::number(wordAt(data, 4)); });
}

}  // namespace kelvane
