// The edit mode of languages: a translator clicks with the right button on any control that a language file
// has a key for, and types its new caption. Hints, menu titles and rows of grids are not offered. It is off
// until the password opens it, and then stays on for the run.
#pragma once

#include <QHash>
#include <QList>
#include <QObject>
#include <functional>
#include <utility>

class QWidget;

namespace kelvane {

class CaptionEditor : public QObject {
    Q_OBJECT
   public:
    // Asks for the text that shall stand in a caption's place.
    using Ask = std::function<void(const QString& caption, std::function<void(const QString&)> replace)>;

    explicit CaptionEditor(Ask ask) : m_ask(std::move(ask)) {}
    void enable(const QList<QWidget*>& windows);

   protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

   private:
    QWidget* controlUnder(QWidget& widget, const QPoint& at) const;
    void rightClicked(QWidget& control);

    Ask m_ask;
    QHash<const QWidget*, int> EditClickCount;  // right clicks on each control that is offered
};

}  // namespace kelvane
