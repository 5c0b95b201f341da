// A page control whose pages are changed from elsewhere. Its tabs are hidden, so they take neither the focus
// nor room, as those of a plain one do.
#pragma once

#include <QStackedWidget>
#include <QTabBar>
#include <QTabWidget>

namespace kelvane {

class TablessPages final : public QTabWidget {
   public:
    explicit TablessPages(QWidget* parent = nullptr) : QTabWidget(parent) {
        tabBar()->hide();
        setDocumentMode(true);
        setFocusProxy(nullptr);
        setFocusPolicy(Qt::NoFocus);
    }
    QSize minimumSizeHint() const override { return findChild<QStackedWidget*>()->minimumSizeHint(); }
};

}  // namespace kelvane
