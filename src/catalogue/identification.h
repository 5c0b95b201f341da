// Finds out what drive is at the other end: the handlers of the tasks that Initial queues, chained by their
// replies, and InitialDrive, which gives the windows the family's view of the status poll. Owned by the
// shell.
#pragma once

#include <QObject>
#include <QStringList>
#include <vector>

#include "catalogue/family_profiles.h"
#include "catalogue/group_names.h"
#include "link/request_scheduler.h"
#include "localisation/voice.h"

namespace kelvane {

class DriveIdentification : public QObject {
    Q_OBJECT
   public:
    // All outlive this object; the voice gives the item names, too.
    DriveIdentification(RequestScheduler& link, GroupNameTable& groupNames, const Voice& voice);

    // Fills the family's tables and labels and tells the windows. A family without a row changes nothing but
    // still runs the common part.
    void InitialDrive();
    // Item names in the present language; the windows keep their selections.
    void refreshItemNames();

    QStringList itemList;             // of the channel selectors, in the order of the family's list
    std::vector<InfoCell> infoCells;  // of the trend window's InfoAdvStringGrid
    bool ComStatusVrIndicatorShown = false;

   Q_SIGNALS:
    void familyKnown(quint8 DriveFamily);  // InitialDrive has run: picture, lists, quick setup
    void itemNamesChanged();

   private:
    void onFamily(const QByteArray& RxData);
    void refuse(quint8 code);
    void enableMenus();
    void takeVersion(quint16 word);
    void onGroupName(const QByteArray& RxData);
    void onModelCode(const QByteArray& RxData);
    void installVariantTasks();

    RequestScheduler& m_link;
    GroupNameTable& m_groupNames;
    const Voice m_voice;
};

}  // namespace kelvane
