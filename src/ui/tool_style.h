// The style of the platform, with our own drawings in boxes and for the mark of a bar that is too narrow for
// its entries. Every menu bar asks for it when it is made, and the style's own is a picture for which all
// image plugins are loaded.
#pragma once

#include <QProxyStyle>

namespace kelvane {

class ToolStyle final : public QProxyStyle {
    Q_OBJECT
   public:
    QIcon standardIcon(StandardPixmap which, const QStyleOption* option,
                       const QWidget* widget) const override;
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* data) const override;
};

}  // namespace kelvane
