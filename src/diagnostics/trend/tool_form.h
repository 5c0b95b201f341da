// TToolForm, the option dialog of the Trend window: whose scale stands on the left, its top, and the widths
// of the pens. OK hands all of it to the session, Cancel nothing.
#pragma once

#include <QDialog>
#include <array>

#include "diagnostics/trend/trend_session.h"

class QComboBox;
class QGridLayout;
class QLineEdit;

namespace kelvane {

class AbLED;

class TToolForm : public QDialog {
    Q_OBJECT
   public:
    explicit TToolForm(TrendSession& session, QWidget* parent = nullptr);

    // Takes the present settings; to be called before it is shown.
    void prepare();

   private:
    void addChannel(QGridLayout* grid, int channel);
    void choose(int channel);
    void OKTransparentButtonClick();

    TrendSession& m_session;
    quint8 OptionLeftChannel = 1;
    QLineEdit* ChLeftEdit;
    std::array<AbLED*, 9> LeftAbLED{};
    std::array<QComboBox*, 9> ChComboBox{};
};

}  // namespace kelvane
