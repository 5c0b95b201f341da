// Comparison: where a table differs from its defaults or from the other table, by the text of the cells. Owns
// what the tab "Comparison Result" shows; files, print and the window read it.
#pragma once

#include <QString>
#include <QStringList>
#include <array>

#include "base/operator.h"
#include "localisation/lang_table.h"
#include "parameters/table/parameter_table.h"

namespace kelvane {

inline constexpr char DriveVsDefault[] = "Drive vs. default";
inline constexpr char FileVsDefault[] = "File vs. default";
inline constexpr char DriveVsFile[] = "Drive vs. File";

// The tab's content: the type, the rows that differ, and the two sources. While row 1 of
// CompInfoAdvStringGrid is hidden its visible row 1 is the file's.
struct ComparisonSheet {
    ComparisonSheet();
    QString CompKindLabel;
    StringGrid CompareAdvStringGrid{ComparisonColumns};
    StringGrid CompInfoAdvStringGrid{7};
};

// Columns 1 to 6 of an info row.
using CompInfoRow = std::array<QString, 6>;
void fillCompInfoRow(StringGrid& CompInfoAdvStringGrid, int row, const CompInfoRow& texts);
CompInfoRow compInfoOf(const QString& source, const TableIdentity& identity);
// "Drive vs. default" hides row 2, "File vs. default" row 1, anything else none.
void hideCompInfoRow(StringGrid& CompInfoAdvStringGrid, const QString& CompKindLabel);

// Items of the kind list for the tables that are open.
QStringList compareKinds(bool driveOpen, bool fileOpen);

struct ComparisonOutcome {
    bool shown = false;        // there is a result: open the tab, make it active and highlighted
    int differences = 0;       // rows, or pairs of rows
    int notComparedDrive = 0;  // parameter rows that had no partner
    int notComparedFile = 0;
};

// Compares the two tables that it is handed; either may be closed if the kind does not need it.
class ComparisonEngine {
   public:
    ComparisonEngine(const ParameterTable& drive, const ParameterTable& file, ComparisonSheet& sheet,
                     Operator& person, const LangTable& lang)
        : m_drive(drive), m_file(file), m_sheet(sheet), m_person(person), m_lang(lang) {}

    // kind is one of compareKinds(). Empties the sheet first, whatever comes of it.
    ComparisonOutcome compare(const QString& kind);

   private:
    ComparisonOutcome driveVsFile();
    ComparisonOutcome withDefaults(const ParameterTable& table, const QString& source);
    bool sameModelOrWanted();
    void emptySheet(const QString& kind);

    const ParameterTable& m_drive;
    const ParameterTable& m_file;
    ComparisonSheet& m_sheet;
    Operator& m_person;
    const LangTable& m_lang;
};

}  // namespace kelvane
