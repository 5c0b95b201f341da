// How the keypad window is built: where everything stands on the drawing, names, hints and colours.
#include <QAction>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QProxyStyle>
#include <QRegularExpressionValidator>
#include <QScrollBar>
#include <QStackedWidget>
#include <cmath>

#include "diagnostics/keypad/keypad_form.h"
#include "ui/icons.h"
#include "ui/led_text.h"
#include "ui/named.h"
#include "ui/panel_key.h"
#include "ui/scanner.h"
#include "ui/seven_segment_label.h"
#include "ui/transparent_button.h"

namespace kelvane {

namespace {

constexpr QSize WindowSize(251, 392);
constexpr QRectF BodyRoom(3.5, 1.5, 244, 389);
constexpr double LargestZoom = 2;
constexpr double ZoomStep = 0.25;

const QColor Glass(0x0D, 0x16, 0x13);
const QColor GlassLight(0x2C, 0x46, 0x3C);
const QColor Ink(0xD9, 0xF2, 0xE6);
const QColor FaintInk(0x9D, 0xB8, 0xAC);
const QColor RunGreen(0x1E, 0x85, 0x3D);
const QColor StopRed(0xC4, 0x28, 0x28);

// A list that scrolls: one as long as all parameters would lie over the keys.
class ScrollingListStyle final : public QProxyStyle {
   public:
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* data) const override {
        return hint == SH_ComboBox_Popup ? 0 : QProxyStyle::styleHint(hint, option, widget, data);
    }
};

// The display's own colours, whatever the palette of the desktop.
QPalette glassPalette() {
    QPalette colours(GlassLight, Glass);
    for (const QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
        for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
            colours.setColor(group, role, group == QPalette::Disabled ? FaintInk : Ink);
        colours.setColor(group, QPalette::Base, QColor(0x20, 0x33, 0x2C));
        colours.setColor(group, QPalette::AlternateBase, GlassLight);
        colours.setColor(group, QPalette::Highlight, QColor(0x2E, 0x8B, 0x66));
        colours.setColor(group, QPalette::HighlightedText, Qt::white);
        colours.setColor(group, QPalette::PlaceholderText, FaintInk);
    }
    return colours;
}

}  // namespace

TKeypadForm::TKeypadForm(Keypad& keypad, KeptLooks& looks, TickClock& clock, QWidget* parent)
    : QWidget(parent, Qt::Window), m_keypad(keypad), m_looks(looks), m_clock(clock) {
    setObjectName(QStringLiteral("TKeypadForm"));
    setWindowTitle(QStringLiteral("Keypad"));
    setWindowIcon(icon(Icon::Keypad));
    build();
    keepColours();
    buildZoom();
    filterTypedKeys();
    listen();
    showScreen();
}

void TKeypadForm::build() {
    m_body = put(named<PictureBox>("BackgroundImage", this), BodyRoom);
    m_body->showKeypad();
    buildKeys();
    buildPages();
    buildLeds();
}

// ---- Pages ----

void TKeypadForm::buildPages() {
    PageControl1 = put(named<QStackedWidget>("PageControl1", m_body), {16, 16, 186, 148});
    struct Page {
        const char* name;
        void (TKeypadForm::*build)(QWidget*);
    };
    for (const Page& page : {Page{"MainTabSheet", &TKeypadForm::buildMainPage},
                             Page{"ParaInfoTabSheet", &TKeypadForm::buildParaPage},
                             Page{"ErrInfoTabSheet", &TKeypadForm::buildErrPage},
                             Page{"StartUpTabSheet", &TKeypadForm::buildStartPage}}) {
        auto* sheet = named<QWidget>(page.name, PageControl1);
        PageControl1->addWidget(sheet);
        (this->*page.build)(sheet);
    }
}

QLabel* TKeypadForm::label(const char* name, QWidget* page, const QRectF& at, double letters) {
    return put(plainLabel(name, {}, page), at, letters);
}

SevenSegmentLabel* TKeypadForm::display(const char* name, QWidget* page, const QRectF& at, int places,
                                        const QString& spoken) {
    auto* made = put(named<SevenSegmentLabel>(name, page), at);
    made->setPlaces(places);
    made->setAccessibleName(spoken);
    return made;
}

void TKeypadForm::buildMainPage(QWidget* page) {
    HeadInfoLabel = label("HeadInfoLabel", page, {0, 0, 186, 18}, 12);
    LeadChVrLabel = display("LeadChVrLabel", page, {0, 20, 30, 52}, 1, QStringLiteral("Lead character"));
    displayVrLabel = display("displayVrLabel", page, {28, 20, 158, 52}, 5, QStringLiteral("Display"));
    underLineVrLabel = put(named<QWidget>("underLineVrLabel", page), {36, 76, 150, 3});
    underLineVrLabel->setAutoFillBackground(true);
    FreqScrollBar = put(named<QScrollBar>("FreqScrollBar", Qt::Horizontal, page), {0, 88, 186, 18});
    FreqScrollBar->setFocusPolicy(Qt::StrongFocus);
    FreqScrollBar->setRange(0, 0);
    FreqScrollBar->setPageStep(100);
    FreqScrollBar->setInvertedControls(false);  // up is more
    FreqScrollBar->setAccessibleName(QStringLiteral("Frequency"));
    FreqScrollBar->setToolTip(QStringLiteral("Frequency of the drive; it is sent when the slider rests"));
    InputEdit = put(named<QLineEdit>("InputEdit", page), {0, 116, 104, 28}, 13);
    InputEdit->setAlignment(Qt::AlignRight);
    InputEdit->setAccessibleName(QStringLiteral("Frequency in Hz"));
    InputEdit->setToolTip(QStringLiteral("Type a frequency and press Enter"));
    m_hertz = label("HertzLabel", page, {108, 116, 40, 28}, 12);
    m_hertz->setText(QStringLiteral("Hz"));
    m_hertz->setBuddy(InputEdit);
    struct Row {
        const char* letterName;
        const char* letter;
        const char* valueName;
        QString spoken;
    };
    const Row rows[] = {{"VrLabel5", "F", "FVrLabel", QStringLiteral("Frequency command")},
                        {"VrLabel6", "H", "HVrLabel", QStringLiteral("Output frequency")},
                        {"VrLabel7", "A", "AVrLabel", QStringLiteral("Output current")}};
    for (size_t i = 0; i < m_summary.size(); ++i) {
        const double top = 4 + 48.0 * static_cast<double>(i);
        m_summary[i].letter = label(rows[i].letterName, page, {6, top, 30, 42}, 22);
        m_summary[i].letter->setText(QLatin1String(rows[i].letter));
        m_summary[i].value = display(rows[i].valueName, page, {44, top, 136, 42}, 5, rows[i].spoken);
    }
}

void TKeypadForm::buildParaPage(QWidget* page) {
    SelPrComboBox = put(named<QComboBox>("SelPrComboBox", page), {0, 0, 92, 24}, 11.5);
    SelPrComboBox->setMaxVisibleItems(7);
    auto* style = new ScrollingListStyle;
    style->setParent(SelPrComboBox);
    SelPrComboBox->setStyle(style);
    SelPrComboBox->setAccessibleName(QStringLiteral("Parameter"));
    SelPrComboBox->setToolTip(QStringLiteral("Parameter on show"));
    PrNumVrLabel = display("PrNumVrLabel", page, {94, 0, 68, 24}, 5, QStringLiteral("Parameter number"));
    LockImage = put(named<QLabel>("LockImage", page), {164, 1, 22, 22});
    LockImage->setScaledContents(true);
    LockImage->setPixmap(iconPicture(Icon::Lock, glassPalette(), {44, 44}));
    LockImage->setAccessibleName(QStringLiteral("Read only"));
    LockImage->setToolTip(QStringLiteral("The drive does not let this parameter be set"));
    PrNameLabel = label("PrNameLabel", page, {0, 28, 186, 18}, 12);
    DataVrLabel = display("DataVrLabel", page, {0, 48, 138, 40}, 5, QStringLiteral("Value"));
    DataVrLabel->setToolTip(QStringLiteral("Double click to set the parameter"));
    UnitVrLabel = label("UnitVrLabel", page, {142, 66, 44, 20}, 12);
    struct Field {
        const char* caption;
        const char* text;
        const char* name;
        QLabel** made;
    };
    double left = 0;
    for (const Field& field : {Field{"DefCaptionLabel", "Default", "DefLabel", &DefLabel},
                               Field{"MinCaptionLabel", "Minimum", "MinLabel", &MinLabel},
                               Field{"MaxCaptionLabel", "Maximum", "MaxLabel", &MaxLabel}}) {
        label(field.caption, page, {left, 92, 61, 13}, 10)->setText(QLatin1String(field.text));
        *field.made = label(field.name, page, {left, 105, 61, 17}, 12.5);
        left += 62;
    }
    EditTransparentButton =
        put(named<TransparentButton>("EditTransparentButton",
                                     QIcon(iconPicture(Icon::Edit, glassPalette(), {40, 40})),
                                     QStringLiteral("Set"), page, TransparentButton::Layout::IconLeft),
            {0, 125, 72, 23}, 11);
    EditTransparentButton->setToolTip(QStringLiteral("Set the parameter"));
}

void TKeypadForm::buildErrPage(QWidget* page) {
    ErrNameVrLabel = display("ErrNameVrLabel", page, {4, 22, 178, 56}, 5, QStringLiteral("Fault"));
    ErrNameVrLabel->setAlignment(Qt::AlignLeft);
    ErrNameVrLabel->setColor(QColor(0xFF, 0x8A, 0x7A));
    ErrDescriptLabel = label("ErrDescriptLabel", page, {4, 88, 178, 54}, 14);
    ErrDescriptLabel->setWordWrap(true);
    ErrDescriptLabel->setAlignment(Qt::AlignTop | Qt::AlignLeft);
}

void TKeypadForm::buildStartPage(QWidget* page) {
    OnLineTransparentButton =
        put(named<TransparentButton>("OnLineTransparentButton",
                                     QIcon(iconPicture(Icon::Connect, glassPalette(), {64, 64})),
                                     QStringLiteral("On Line"), page),
            {43, 38, 100, 72}, 13);
    OnLineTransparentButton->setToolTip(QStringLiteral("Set up the COM port and go on line"));
    InitialVrLabel = label("InitialVrLabel", page, {0, 44, 186, 24}, 13);
    InitialVrLabel->setText(QStringLiteral("Initializing ..."));
    InitialVrLabel->setAlignment(Qt::AlignCenter);
    InitialVrIndicator = put(named<VrIndicator>("InitialVrIndicator", page), {13, 74, 160, 18});
    InitialVrIndicator->setAccessibleName(QStringLiteral("The drive is being identified"));
}

// ---- Lamps and keys ----

void TKeypadForm::buildLeds() {
    struct Led {
        const char* name;
        const char* text;
        QString spoken;
        QRectF at;
    };
    const auto bottom = [](int place) { return QRectF(14 + 31.0 * place, 169, 30, 25); };
    const auto side = [](int place) { return QRectF(207, 22 + 44.0 * place, 24, 36); };
    const Led leds[KeypadLedCount] = {
        {"RUNledLabel", "RUN", QStringLiteral("Running"), bottom(0)},
        {"STOPledLabel", "STOP", QStringLiteral("Stopped"), bottom(1)},
        {"JOGledLabel", "JOG", QStringLiteral("Jogging"), bottom(2)},
        {"FWDledLabel", "FWD", QStringLiteral("Forward"), bottom(3)},
        {"REVledLabel", "REV", QStringLiteral("Reverse"), bottom(4)},
        {"EXTledLabel", "EXT", QStringLiteral("Frequency from outside"), bottom(5)},
        {"PUledLabel", "PU", QStringLiteral("PU"), bottom(6)},
        {"FledLabel", "F", QStringLiteral("Frequency command"), side(0)},
        {"HledLabel", "H", QStringLiteral("Output frequency"), side(1)},
        {"UledLabel", "U", QStringLiteral("User display"), side(2)},
    };
    for (size_t i = 0; i < m_leds.size(); ++i) {
        m_leds[i] = put(named<LedText>(leds[i].name, QString::fromLatin1(leds[i].text), m_body), leds[i].at,
                        i < Fled ? 9.5 : 14);
        m_leds[i]->setAccessibleName(leds[i].spoken);
        m_leds[i]->setToolTip(leds[i].spoken);
    }
}

PanelKey* TKeypadForm::key(const char* name, const QString& text, const QString& hint, const QRectF& at) {
    auto* made = put(named<PanelKey>(name, m_clock, text, m_body), at, 12);
    made->setToolTip(hint);
    made->setAccessibleDescription(hint);
    m_keys.push_back(made);
    return made;
}

void TKeypadForm::buildKeys() {
    const auto at = [](int column, int row) { return QRectF(16 + 72.0 * column, 211 + 49.0 * row, 68, 43); };
    const auto clicked = [this](PanelKey* made, void (Keypad::*handler)()) {
        connect(made, &QAbstractButton::clicked, &m_keypad, handler);
    };
    clicked(key("ModeTransparentButton", QStringLiteral("MODE"), QStringLiteral("Mode: next display page"),
                at(0, 0)),
            &Keypad::ModeTransparentButtonClick);
    clicked(key("PROGTransparentButton", QStringLiteral("PROG"),
                QStringLiteral("Program: show the parameters"), at(1, 0)),
            &Keypad::PROGTransparentButtonClick);
    clicked(key("LeftArrowTransparentButton", QStringLiteral("\u25C0"),
                QStringLiteral("Left arrow: next value of the user display"), at(2, 0)),
            &Keypad::LeftArrowTransparentButtonClick);
    PanelKey* jog = key("JOGTransparentButton", QStringLiteral("JOG"),
                        QStringLiteral("Jog: the motor turns while the key is held"), at(0, 1));
    connect(jog, &PanelKey::heldDown, &m_keypad, &Keypad::JOGTransparentButtonMouseDown);
    connect(jog, &PanelKey::letGo, &m_keypad, &Keypad::JOGTransparentButtonMouseUp);
    clicked(key("DIRTransparentButton", QStringLiteral("FWD/REV"),
                QStringLiteral("Direction: change between forward and reverse"), at(1, 1)),
            &Keypad::DIRTransparentButtonClick);
    clicked(key("PUTransparentButton", QStringLiteral("PU"), QStringLiteral("PU: without a function here"),
                at(2, 1)),
            &Keypad::PUTransparentButtonClick);
    PanelKey* run = key("RUNTransparentButton", QStringLiteral("RUN"), QStringLiteral("Run: start the motor"),
                        {16, 311, 104, 60});
    run->setColor(RunGreen);
    clicked(run, &Keypad::RUNTransparentButtonClick);
    STOPTransparentButton =
        key("STOPTransparentButton", QStringLiteral("STOP"),
            QStringLiteral("Stop: stop the motor, or reset a fault (F12)"), {124, 311, 104, 60});
    STOPTransparentButton->setColor(StopRed);
    clicked(STOPTransparentButton, &Keypad::STOPTransparentButtonClick);
    m_keys[2]->setAccessibleName(QStringLiteral("Left arrow"));
}

// ---- Colours, size, keys that are typed ----

void TKeypadForm::keepColours() {
    QPalette body;
    body.setColor(QPalette::Window, QColor(0x20, 0x24, 0x29));
    setPalette(body);
    PageControl1->setPalette(glassPalette());
    QPalette line = glassPalette();
    line.setColor(QPalette::Window, displayVrLabel->color());
    underLineVrLabel->setPalette(line);
}

void TKeypadForm::buildZoom() {
    struct Step {
        const char* name;
        QString text;
        QKeySequence key;
        double by;
    };
    for (const Step& step :
         {Step{"LargerItem", QStringLiteral("Larger"), QKeySequence::ZoomIn, ZoomStep},
          Step{"SmallerItem", QStringLiteral("Smaller"), QKeySequence::ZoomOut, -ZoomStep},
          Step{"UsualSizeItem", QStringLiteral("Usual Size"), QKeySequence(Qt::CTRL | Qt::Key_0), 0}}) {
        auto* action = named<QAction>(step.name, step.text, this);
        action->setShortcut(step.key);
        connect(action, &QAction::triggered, this,
                [this, step] { setZoom(step.by == 0 ? 1 : m_zoom + step.by); });
        addAction(action);
    }
    setContextMenuPolicy(Qt::ActionsContextMenu);
    bool kept = false;
    const double zoom = m_looks.text(QStringLiteral("keypad/zoom")).toDouble(&kept);
    m_zoom = kept ? std::clamp(zoom, 1.0, LargestZoom) : 1;
    place();
}

void TKeypadForm::setZoom(double zoom) {
    zoom = std::clamp(zoom, 1.0, LargestZoom);
    if (zoom == m_zoom) return;
    m_zoom = zoom;
    m_looks.setText(QStringLiteral("keypad/zoom"), QString::number(zoom));
    place();
}

void TKeypadForm::place() {
    setFixedSize(WindowSize * m_zoom);
    for (const Place& place : m_places) {
        const QRectF& at = place.at;
        place.widget->setGeometry(QRectF(at.topLeft() * m_zoom, at.size() * m_zoom).toRect());
        QFont face = place.widget->font();
        face.setPixelSize(static_cast<int>(std::lround(place.letters * m_zoom)));
        place.widget->setFont(face);
    }
    const int mark = static_cast<int>(std::lround(15 * m_zoom));
    EditTransparentButton->setIconSize({mark, mark});
    OnLineTransparentButton->setIconSize({2 * mark, 2 * mark});
}

void TKeypadForm::filterTypedKeys() {
    // What is pasted has to pass the filter of the keys too.
    static const QRegularExpression numbers(QStringLiteral("[-0-9.,]*"));
    InputEdit->setValidator(new QRegularExpressionValidator(numbers, InputEdit));
    for (QWidget* watched : std::initializer_list<QWidget*>{InputEdit, DataVrLabel, FreqScrollBar})
        watched->installEventFilter(this);
}

}  // namespace kelvane
