// The label that shows a file's path in the room it has: folders are left out first, the file name last.
#pragma once

#include <QLabel>
#include <functional>

namespace kelvane {

// The path shortened to `width` as measured by `widthOf`: as it is, then with folders replaced by "..." from
// the right, then the file name alone, then the file name with its middle left out (end and ending kept).
QString calLabelString(const QString& path, int width, const std::function<int(const QString&)>& widthOf);

class PathLabel : public QLabel {
    Q_OBJECT
    Q_PROPERTY(QString path READ path WRITE setPath)
   public:
    explicit PathLabel(QWidget* parent = nullptr);

    QString path() const { return m_path; }
    void setPath(const QString& path);  // text() is what is shown, the tool tip has it whole

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

   protected:
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

   private:
    void fit();
    QString m_path;
};

}  // namespace kelvane
