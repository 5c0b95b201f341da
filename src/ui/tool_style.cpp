#include "ui/tool_style.h"

#include "ui/icons.h"

namespace kelvane {

QIcon ToolStyle::standardIcon(StandardPixmap which, const QStyleOption* option, const QWidget* widget) const {
    switch (which) {
        case SP_ToolBarHorizontalExtensionButton:
        case SP_ToolBarVerticalExtensionButton: return icon(Icon::More);
        case SP_MessageBoxInformation: return icon(Icon::About);
        case SP_MessageBoxQuestion: return icon(Icon::Help);
        case SP_MessageBoxWarning: return icon(Icon::Fault);
        case SP_MessageBoxCritical: return icon(Icon::Refused);
        case SP_DialogOkButton:
        case SP_DialogYesButton: return icon(Icon::Accept);
        case SP_DialogCancelButton:
        case SP_DialogNoButton: return icon(Icon::Cancel);
        case SP_DialogSaveButton: return icon(Icon::Save);
        case SP_DialogOpenButton: return icon(Icon::Open);
        case SP_DialogRetryButton: return icon(Icon::Redo);
        default: return QProxyStyle::standardIcon(which, option, widget);
    }
}

// Some platforms leave the pictures of boxes out, and beside our own buttons such a box would look foreign.
int ToolStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                         QStyleHintReturn* data) const {
    if (hint == SH_DialogButtonBox_ButtonsHaveIcons) return 1;
    return QProxyStyle::styleHint(hint, option, widget, data);
}

}  // namespace kelvane
