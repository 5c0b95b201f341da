// TCEmessageForm, the notice that the link is trying again. It follows the link's notice record, blocks
// nothing, and is a child of whatever window is in front, so that it can be seen and used over a modal one.
#pragma once

#include <QDialog>

#include "link/request_scheduler.h"

class QLabel;

namespace kelvane {

class TCEmessageForm : public QDialog {
    Q_OBJECT
   public:
    explicit TCEmessageForm(RequestScheduler& link, QWidget* parent = nullptr);

    // Shows it as a child of that window, until it is closed; nullptr for its own place.
    void showOver(QWidget* window);

   protected:
    void done(int result) override;

   private:
    void showRecord();
    RequestScheduler& m_link;
    QWidget* m_home;
    QLabel* m_text;
};

}  // namespace kelvane
