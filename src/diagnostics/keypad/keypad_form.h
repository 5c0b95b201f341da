// TKeypadForm, the window of the software keypad: a drawing of a keypad with display, lamps and keys. Not
// modal, of one shape and any size from 100 to 200 %. It shows the engine's screen and passes the hand on.
#pragma once

#include <QWidget>
#include <array>
#include <vector>

#include "base/kept_looks.h"
#include "diagnostics/keypad/keypad.h"

class QComboBox;
class QLabel;
class QLineEdit;
class QScrollBar;
class QStackedWidget;

namespace kelvane {

class LedText;
class PanelKey;
class PictureBox;
class SevenSegmentLabel;
class TransparentButton;
class VrIndicator;

class TKeypadForm : public QWidget {
    Q_OBJECT
    Q_PROPERTY(int tag READ tag)
   public:
    TKeypadForm(Keypad& keypad, KeptLooks& looks, TickClock& clock, QWidget* parent = nullptr);

    int tag() const { return m_tag; }  // 1 while the keypad is open
    double zoom() const { return m_zoom; }
    void setZoom(double zoom);  // 1 to 2

   Q_SIGNALS:
    void onLineClicked();  // as a double click on the main window's lamp

   protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

   private:
    // Where a widget stands on the drawing of 244 x 389, or on its page, and the height of its letters.
    struct Place {
        QWidget* widget;
        QRectF at;
        double letters;
    };
    template <class Widget>
    Widget* put(Widget* widget, const QRectF& at, double letters = 11) {
        m_places.push_back({widget, at, letters});
        return widget;
    }
    void build();
    void buildPages();
    void buildMainPage(QWidget* page);
    void buildParaPage(QWidget* page);
    void buildErrPage(QWidget* page);
    void buildStartPage(QWidget* page);
    void buildLeds();
    void buildKeys();
    void buildZoom();
    QLabel* label(const char* name, QWidget* page, const QRectF& at, double letters = 11);
    SevenSegmentLabel* display(const char* name, QWidget* page, const QRectF& at, int places,
                               const QString& spoken);
    PanelKey* key(const char* name, const QString& text, const QString& hint, const QRectF& at);
    void place();
    void keepColours();
    void listen();
    void filterTypedKeys();

    void showScreen();
    void showMainPage(const KeypadScreen& now);
    void showParaPage(const KeypadScreen& now);
    void showLeds(const KeypadScreen& now);

    Keypad& m_keypad;
    KeptLooks& m_looks;
    TickClock& m_clock;
    KeypadScreen m_shown;
    std::vector<Place> m_places;
    double m_zoom = 1;
    int m_tag = 0;

    PictureBox* m_body;
    QStackedWidget* PageControl1;
    QLabel* HeadInfoLabel;
    SevenSegmentLabel* displayVrLabel;
    SevenSegmentLabel* LeadChVrLabel;
    QWidget* underLineVrLabel;
    QScrollBar* FreqScrollBar;
    QLineEdit* InputEdit;
    QLabel* m_hertz;
    struct SummaryRow {
        QLabel* letter;
        SevenSegmentLabel* value;
    };
    std::array<SummaryRow, 3> m_summary;
    QComboBox* SelPrComboBox;
    SevenSegmentLabel* PrNumVrLabel;
    QLabel* PrNameLabel;
    SevenSegmentLabel* DataVrLabel;
    QLabel* DefLabel;
    QLabel* MinLabel;
    QLabel* MaxLabel;
    QLabel* UnitVrLabel;
    QLabel* LockImage;
    TransparentButton* EditTransparentButton;
    SevenSegmentLabel* ErrNameVrLabel;
    QLabel* ErrDescriptLabel;
    QLabel* InitialVrLabel;
    VrIndicator* InitialVrIndicator;
    TransparentButton* OnLineTransparentButton;
    std::array<LedText*, KeypadLedCount> m_leds;
    std::vector<PanelKey*> m_keys;
    PanelKey* STOPTransparentButton = nullptr;
};

}  // namespace kelvane
