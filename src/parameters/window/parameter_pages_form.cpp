#include "parameters/window/parameter_pages_form.h"

#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QTabBar>
#include <QVBoxLayout>
#include <algorithm>

#include "ui/display_label.h"
#include "ui/icons.h"
#include "ui/lamp.h"
#include "ui/mnemonic.h"
#include "ui/path_label.h"

namespace kelvane {

namespace {

constexpr int IdentityCharacters = 14;

// As wide as its text on a small screen, where the names in the tree want the room.
class IdentityLabel final : public VrLabel {
   public:
    using VrLabel::VrLabel;
    QSize minimumSizeHint() const override {
        const int ownText = fontMetrics().size(0, text()).width() + 2 * (frameWidth() + margin());
        return {std::min(ownText, sizeHint().width()), sizeHint().height()};
    }
};
constexpr int InfoRows = 2;
constexpr int MostDescriptionCharacters = 40;  // names have sixteen, but values should stand near them

const std::vector<int> TableCharacters{3, 7, 8, 18, 5, 9, 9, 9, 9, 11, 6};
const std::vector<int> InfoCharacters{3, 22, 14, 10, 14, 14, 12};
const QSet<int> ValueColumns{column::Data, column::Default, column::Min, column::Max};

void setUpTable(StringGridView* view, const char* name, StringGrid& grid) {
    view->setObjectName(QLatin1String(name));
    view->setGrid(&grid);
    view->setColumnCharacters(TableCharacters);
    view->setStretchColumn(column::Description, MostDescriptionCharacters);
    view->setRightAligned(ValueColumns);
    view->setEditedMarkColumn(column::Data);
}

}  // namespace

// ---- Sheets ----

TabSheet::TabSheet(QTabWidget* pages, const char* name, const QString& text) : m_pages(pages) {
    setObjectName(QLatin1String(name));
    pages->addTab(this, QString());
    setText(text);
}

void TabSheet::setText(const QString& text) {
    m_text = text;
    m_pages->setTabText(m_pages->indexOf(this), text);
    setAccessibleName(withoutMnemonic(text));
}

void TabSheet::setTabVisible(bool visible) { m_pages->setTabVisible(m_pages->indexOf(this), visible); }

// The mark is the tab's own: the style shows which one is in front.
void TabSheet::setHighlighted(bool highlighted) { m_highlighted = highlighted; }

void TreePages::keyPressEvent(QKeyEvent* event) { event->ignore(); }

void ShownPages::keyPressEvent(QKeyEvent* event) {
    const bool back = event->matches(QKeySequence::PreviousChild);
    if (!back && !event->matches(QKeySequence::NextChild)) return event->ignore();
    int page = currentIndex();
    for (int i = 1; i < count(); ++i) {
        page = (page + (back ? count() - 1 : 1)) % count();
        if (isTabVisible(page)) return setCurrentIndex(page);
    }
}

TableSheet::TableSheet(QTabWidget* pages, TableSide side, StringGrid& all, StringGrid& sub)
    : TabSheet(
          pages, side == TableSide::Drive ? "DriveTabSheet" : "FileTabSheet",
          side == TableSide::Drive ? QStringLiteral("Table from Drive") : QStringLiteral("Table from File")),
      m_side(side) {
    const bool drive = side == TableSide::Drive;
    auto* column = new QVBoxLayout(this);
    buildIdentity(column);
    m_sheets = new TreePages(this);
    m_sheets->setObjectName(drive ? QStringLiteral("DrivePageControl") : QStringLiteral("FilePageControl"));
    m_sheets->setDocumentMode(true);
    m_sheets->tabBar()->hide();
    allGrid = addSheet(drive ? "DriveAllParaTabSheet" : "FileAllParaTabSheet", QStringLiteral("All"),
                       drive ? "DriveAdvStringGrid" : "FileAdvStringGrid", all);
    subGrid = addSheet(drive ? "DriveSubParaTabSheet" : "FileSubParaTabSheet", QStringLiteral("Sub"),
                       drive ? "SubDriveAdvStringGrid" : "SubFileAdvStringGrid", sub);
    allGrid->setAccessibleName(QStringLiteral("All parameters"));
    subGrid->setAccessibleName(QStringLiteral("Parameters of the group"));
    column->addWidget(m_sheets, 1);
}

void TableSheet::buildIdentity(QVBoxLayout* column) {
    const bool drive = m_side == TableSide::Drive;
    auto* header = new QGridLayout;
    header->setColumnStretch(6, 1);
    const auto name = [drive](const char* ofDrive, const char* ofFile) { return drive ? ofDrive : ofFile; };
    ModelVrLabel = addLabel(header, 0, 0, name("ModelVrLabel", "ModelFVrLabel"), QStringLiteral("Drive:"));
    VersionVrLabel =
        addLabel(header, 0, 2, name("VersionVrLabel", "VersionFVrLabel"), QStringLiteral("Version:"));
    HPVrLabel = addLabel(header, 0, 4, name("HPVrLabel", "HPFVrLabel"), QStringLiteral("kW ( Hp ):"));
    RatedVoltageVrLabel = addLabel(header, 1, 0, name("RatedVoltageVrLabel", "RatedVoltageFVrLabel"),
                                   QStringLiteral("Rated Voltage:"));
    RatedCurrentVrLabel = addLabel(header, 1, 2, name("RatedCurrentVrLabel", "RatedCurrentFVrLabel"),
                                   QStringLiteral("Rated Current:"));
    if (drive) {
        RparaAbLED = new AbLED(QStringLiteral("Reserved parameters opened"), this);
        RparaAbLED->setObjectName(QStringLiteral("RparaAbLED"));
        RparaAbLED->setChecked(true);
        header->addWidget(RparaAbLED, 1, 4, 1, 3, Qt::AlignLeft | Qt::AlignVCenter);
    } else {
        FileNameLabel = new PathLabel(this);
        FileNameLabel->setObjectName(QStringLiteral("FileNameLabel"));
        header->addWidget(new QLabel(QStringLiteral("File Name:"), this), 2, 0);
        header->addWidget(FileNameLabel, 2, 1, 1, 6);
    }
    column->addLayout(header);
}

VrLabel* TableSheet::addLabel(QGridLayout* header, int row, int column, const char* name,
                              const QString& caption) {
    auto* label = new IdentityLabel(this);
    label->setObjectName(QLatin1String(name));
    label->setCharacters(IdentityCharacters);
    auto* captionLabel = new QLabel(caption, this);
    captionLabel->setObjectName(QStringLiteral("Disp") % QLatin1String(name));
    captionLabel->setTextFormat(Qt::PlainText);
    captionLabel->setBuddy(label);
    header->addWidget(captionLabel, row, column);
    header->addWidget(label, row, column + 1);
    return label;
}

StringGridView* TableSheet::addSheet(const char* sheetName, const QString& caption, const char* gridName,
                                     StringGrid& grid) {
    auto* sheet = new TabSheet(m_sheets, sheetName, caption);
    auto* view = new StringGridView(sheet);
    setUpTable(view, gridName, grid);
    for (int c = column::Address; c < TableColumns; ++c) grid.setColumnHidden(c, true);
    auto* room = new QVBoxLayout(sheet);
    room->setContentsMargins(0, 0, 0, 0);
    room->addWidget(view);
    return view;
}

void TableSheet::showSub(bool sub) { m_sheets->setCurrentIndex(sub ? 1 : 0); }

CompareSheet::CompareSheet(QTabWidget* pages, ComparisonSheet& comparison)
    : TabSheet(pages, "CompareTabSheet", QStringLiteral("Comparison Result")) {
    CompKindLabel = new VrLabel(this);
    CompKindLabel->setObjectName(QStringLiteral("CompKindLabel"));
    CompKindLabel->setCharacters(20);
    CompInfoAdvStringGrid = new StringGridView(this);
    CompInfoAdvStringGrid->setObjectName(QStringLiteral("CompInfoAdvStringGrid"));
    CompInfoAdvStringGrid->setAccessibleName(QStringLiteral("Compared tables"));
    CompInfoAdvStringGrid->setGrid(&comparison.CompInfoAdvStringGrid);
    CompInfoAdvStringGrid->setColumnCharacters(InfoCharacters);
    CompInfoAdvStringGrid->setStretchColumn(1);
    CompInfoAdvStringGrid->setFixedHeight(CompInfoAdvStringGrid->heightOf(InfoRows));
    CompareAdvStringGrid = new StringGridView(this);
    CompareAdvStringGrid->setAccessibleName(QStringLiteral("Differences"));
    setUpTable(CompareAdvStringGrid, "CompareAdvStringGrid", comparison.CompareAdvStringGrid);

    auto* kind = new QHBoxLayout;
    kind->addWidget(new QLabel(QStringLiteral("Comparison Type:"), this));
    kind->addWidget(CompKindLabel);
    kind->addStretch();
    auto* column = new QVBoxLayout(this);
    column->addLayout(kind);
    column->addWidget(CompInfoAdvStringGrid);
    column->addWidget(CompareAdvStringGrid, 1);
}

// ---- All pages ----

ParameterPages::ParameterPages(ParameterSession& session, QWidget* parent)
    : QStackedWidget(parent), m_session(session) {
    buildEmptyPage();
    PageControl1 = new ShownPages(this);
    PageControl1->setObjectName(QStringLiteral("PageControl1"));
    DriveTabSheet = new TableSheet(PageControl1, TableSide::Drive, session.DriveAdvStringGrid,
                                   session.SubDriveAdvStringGrid);
    FileTabSheet = new TableSheet(PageControl1, TableSide::File, session.FileAdvStringGrid,
                                  session.SubFileAdvStringGrid);
    CompareTabSheet = new CompareSheet(PageControl1, session.comparison);
    PrintTabSheet = new TabSheet(PageControl1, "PrintTabSheet", QStringLiteral("Print Preview"));
    File2TabSheet = new TabSheet(PageControl1, "File2TabSheet", QStringLiteral("Table from 2nd File"));
    PageControl1->setTabIcon(0, icon(Icon::TreeDrive));
    PageControl1->setTabIcon(1, icon(Icon::TreeFile));
    PageControl1->setTabIcon(2, icon(Icon::TreeCompare));
    for (TabSheet* hidden : {PrintTabSheet, File2TabSheet}) hidden->setTabVisible(false);
    PageControl1->setTabsClosable(true);
    addWidget(PageControl1);
    connect(PageControl1, &QTabWidget::currentChanged, this, [this](int index) {
        if (!m_mirroring && tabOf(index) != ParameterTab::None) Q_EMIT tabChosen(tabOf(index));
    });
    connect(PageControl1, &QTabWidget::tabCloseRequested, this, [this](int index) {
        Q_EMIT tabChosen(tabOf(index));
        Q_EMIT closeTabWanted();
    });
    PageControl1->tabBar()->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(PageControl1->tabBar(), &QWidget::customContextMenuRequested, this, &ParameterPages::tabMenu);
    showScreen();
}

void ParameterPages::buildEmptyPage() {
    auto* hint =
        new QLabel(QStringLiteral("No parameter table is open.\n\nRead the table from the drive, or open a "
                                  "file: with \"Read File\", from the folder list, or by dropping it here."),
                   this);
    hint->setAlignment(Qt::AlignCenter);
    hint->setWordWrap(true);
    hint->setMargin(fontMetrics().height() * 2);
    addWidget(hint);
}

void ParameterPages::tabMenu(const QPoint& pos) {
    const int index = PageControl1->tabBar()->tabAt(pos);
    if (tabOf(index) == ParameterTab::None) return;
    Q_EMIT tabChosen(tabOf(index));
    Q_EMIT tabMenuRequested(PageControl1->tabBar()->mapToGlobal(pos));
}

ParameterTab ParameterPages::tabOf(int index) const {
    for (const ParameterTab tab : {ParameterTab::Drive, ParameterTab::File, ParameterTab::Compare})
        if (index >= 0 && PageControl1->widget(index) == sheet(tab)) return tab;
    return ParameterTab::None;
}

TabSheet* ParameterPages::sheet(ParameterTab tab) const {
    switch (tab) {
        case ParameterTab::Drive: return DriveTabSheet;
        case ParameterTab::File: return FileTabSheet;
        case ParameterTab::Compare: return CompareTabSheet;
        case ParameterTab::None: break;
    }
    return nullptr;
}

QString ParameterPages::tabCaption(ParameterTab tab) const {
    const TabSheet* page = sheet(tab);
    return page ? page->text() : QString();
}

void ParameterPages::showScreen() {
    m_mirroring = true;
    showTabs();
    showIdentity();
    m_mirroring = false;
}

void ParameterPages::showTabs() {
    const ParameterScreen& screen = m_session.screen;
    for (const ParameterTab tab : {ParameterTab::Drive, ParameterTab::File, ParameterTab::Compare}) {
        sheet(tab)->setTabVisible(screen.visible(tab));
        sheet(tab)->setHighlighted(screen.active == tab);
    }
    DriveTabSheet->showSub(screen.driveSubShown);
    FileTabSheet->showSub(screen.fileSubShown);
    if (TabSheet* front = sheet(screen.active)) PageControl1->setCurrentWidget(front);
    setCurrentIndex(screen.active == ParameterTab::None ? 0 : 1);
}

void ParameterPages::showIdentity() {
    const DriveLabelsRecord& labels = m_session.site.link.Labels;
    DriveTabSheet->ModelVrLabel->setText(m_session.screen.ModelVrLabel);
    DriveTabSheet->VersionVrLabel->setText(labels.VersionVrLabel);
    DriveTabSheet->HPVrLabel->setText(labels.HPVrLabel);
    DriveTabSheet->RatedVoltageVrLabel->setText(labels.RatedVoltageVrLabel);
    DriveTabSheet->RatedCurrentVrLabel->setText(labels.RatedCurrentVrLabel);
    DriveTabSheet->RparaAbLED->setVisible(m_session.screen.RparaAbLEDShown);
    const TableIdentity& file = m_session.fileTable.identity;
    FileTabSheet->ModelVrLabel->setText(file.model);
    FileTabSheet->VersionVrLabel->setText(file.version);
    FileTabSheet->HPVrLabel->setText(file.hp);
    FileTabSheet->RatedVoltageVrLabel->setText(file.ratedVoltage);
    FileTabSheet->RatedCurrentVrLabel->setText(file.ratedCurrent);
    FileTabSheet->FileNameLabel->setPath(m_session.fileTable.TableFileName);
    CompareTabSheet->CompKindLabel->setText(m_session.comparison.CompKindLabel);
}

StringGridView* ParameterPages::frontView() const {
    switch (m_session.screen.active) {
        case ParameterTab::Drive:
            return DriveTabSheet->subShown() ? DriveTabSheet->subGrid : DriveTabSheet->allGrid;
        case ParameterTab::File:
            return FileTabSheet->subShown() ? FileTabSheet->subGrid : FileTabSheet->allGrid;
        case ParameterTab::Compare: return CompareTabSheet->CompareAdvStringGrid;
        case ParameterTab::None: break;
    }
    return nullptr;
}

}  // namespace kelvane
