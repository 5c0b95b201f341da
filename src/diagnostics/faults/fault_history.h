// What fault the drive reports now, and which it reported earlier in this run of the program. A list that is
// built while the trend watches: nothing is read from the drive's own fault log and nothing is kept on disk.
// Fields are those of the Trend window's Status tab and of TErrHistoryForm.
#pragma once

#include <QObject>

#include "base/operator.h"
#include "base/string_grid.h"
#include "base/whole_file.h"
#include "link/link_records.h"

namespace kelvane {

class FaultHistory : public QObject {
    Q_OBJECT
   public:
    // now gives date and time in the system's formats.
    FaultHistory(Operator& person, std::function<QString()> now);

    bool ErrCodeAbLEDLit = false;
    QString ErrCodeLabel = QStringLiteral("0");
    QString ErrDescriptLabel = QStringLiteral("No errors occurred");
    bool standing() const { return ErrCodeAbLEDLit; }  // both labels red, else green
    // Number, code, description, time. Its last row is always empty.
    StringGrid ErrorAdvStringGrid{4};

    // Every tick of the trend.
    void showFault(const DriveStatusRecord& DriveStatus);
    void ClearTransparentButtonClick();

    int entries() const { return ErrorAdvStringGrid.RowCount() - 2; }
    // Header and entries as lines with tabs between.
    QString asText() const;
    // Asks for a name and saves it as text or, with commas, as .csv.
    void save();

   Q_SIGNALS:
    void changed();

   private:
    void show(bool on, const QString& code, const QString& description);
    void enter(const QString& previous);
    QString joined(QChar between) const;
    Operator& m_person;
    const std::function<QString()> m_now;
};

}  // namespace kelvane
