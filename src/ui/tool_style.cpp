#include "ui/tool_style.h"

#include "ui/icons.h"

namespace kelvane {

QIcon ToolStyle::standardIcon(StandardPixmap which, const QStyleOption* option, const QWidget* widget) const {
    const bool more =
        which == SP_ToolBarHorizontalExtensionButton || which == SP_ToolBarVerticalExtensionButton;
    return more ? icon(Icon::More) : QProxyStyle::standardIcon(which, option, widget);
}

}  // namespace kelvane
