// The edit mode of languages, as a translator goes through it, and the manuals of the Help menu.
#include <gtest/gtest.h>

#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTabBar>
#include <QTabWidget>
#include <QTest>

#include "shell/edit_form.h"
#include "shell/shell_bench.h"

namespace kelvane {
namespace {

struct EditMode : testing::Test {
    ShellBench bench;
    const QString file = bench.dir.filePath("Lang_RU.txt");

    EditMode() {
        const QString shipped = QStringLiteral(KELVANE_SOURCE_DIR "/Language file/");
        EXPECT_TRUE(LoadLanguage(shipped + languageFileName(9), bench.language).ok());
        bench.windows->showLanguage();
    }
    QWidget& window(const char* form) { return *bench.windows->formOf(*windowRow(QLatin1String(form))); }
    TEditForm& editor() { return bench.windows->form<TEditForm>(); }
    void enter() {
        bench.trigger("HelpAboutItem");
        QTest::mouseDClick(bench.find<QLabel>("ThanksLabel", &bench.windows->aboutForm), Qt::LeftButton);
        ASSERT_TRUE(bench.windows->passwordForm.isVisible());
        auto* edit = bench.find<QLineEdit>("PasswordEdit", &bench.windows->passwordForm);
        bench.person.expectBox("Edit language function enabled.", "Success");
        QTest::keyClicks(edit, "quillbar");
        QTest::keyClick(edit, Qt::Key_Return);
        EXPECT_FALSE(bench.windows->passwordForm.isVisible());
        bench.windows->aboutForm.close();
    }
    void rightClick(QWidget* control, QPoint at = {}) {
        QTest::mouseClick(control, Qt::RightButton, Qt::NoModifier, at);
    }
    void type(const QString& text, Qt::Key end = Qt::Key_Return) {
        SCOPED_TRACE(text.toStdString());
        ASSERT_TRUE(editor().isVisible());
        auto* edit = bench.find<QLineEdit>("UpdateEdit", &editor());
        EXPECT_TRUE(edit->text().isEmpty());
        edit->setText(text);
        QTest::keyClick(edit, end);
        EXPECT_FALSE(editor().isVisible());
        EXPECT_TRUE(edit->text().isEmpty());
    }
};

TEST_F(EditMode, EditsSavesAndIsSeenAfterARestart) {
    auto* label = bench.find<QWidget>("DispDriveVrLabel");
    rightClick(label);
    EXPECT_FALSE(editor().isVisible() || bench.find<QWidget>("LangTransparentButton")->isVisible())
        << "before the password";
    enter();
    EXPECT_TRUE(bench.find<QWidget>("LangTransparentButton")->isVisible());

    rightClick(label);
    const QString before = captionOf(*label);
    type("left by Escape", Qt::Key_Escape);
    EXPECT_EQ(captionOf(*label), before);
    rightClick(label);
    type("");
    EXPECT_EQ(captionOf(*label), before);
    rightClick(label);
    type("Машина:");

    // A button opens it at every second click, each by its own count; switched off ones too.
    auto* open = bench.find<QWidget>("OpenTransparentButton");
    auto* save = bench.find<QWidget>("SaveTransparentButton");
    save->setEnabled(false);
    rightClick(open);
    rightClick(save);
    EXPECT_FALSE(editor().isVisible());
    rightClick(open);
    type("Проект");
    rightClick(save);
    type("В файл");

    QWidget& setup = window("TComSetupForm");
    bench.windows->openComSetup();
    auto* box = bench.find<QGroupBox>("GroupBox2", &setup);
    rightClick(box, {box->width() / 2, 4});
    type("Кадр");
    for (QComboBox* inside : box->findChildren<QComboBox*>()) rightClick(inside);
    EXPECT_FALSE(editor().isVisible()) << "a control inside is not the box";
    setup.hide();
    auto* channels = bench.find<QGroupBox>("ChSelGroupBox", &window("TScopeForm"));
    const QString channelCaption = channels->title();
    auto* tabs = bench.find<QTabWidget>("PageControl2", &bench.windows->parameterForm);
    bench.windows->parameterForm.show();
    rightClick(tabs->tabBar(), tabs->tabBar()->tabRect(tabs->currentIndex()).center());
    type("Список");
    rightClick(tabs->currentWidget());
    EXPECT_FALSE(editor().isVisible()) << "the ground of a page";

    bench.person.expectSave("TXT File(*.txt)|*.txt", "prj", file);
    bench.find<QAbstractButton>("LangTransparentButton")->click();

    ShellBench next;
    next.language.LanguageIndex = 9;
    ASSERT_TRUE(LoadLanguage(file, next.language).ok());
    next.windows->showLanguage();
    EXPECT_EQ(next.text("DispDriveVrLabel"), "Машина:");
    EXPECT_EQ(next.find<QAction>("FileOpenItem")->text(), "Проект");
    EXPECT_EQ(next.text("SaveTransparentButton"), "В файл");
    EXPECT_EQ(next.find<QGroupBox>("GroupBox2", &next.windows->comSetupForm)->title(), "Кадр");
    EXPECT_EQ(next.find<QTabWidget>("PageControl2", &next.windows->parameterForm)->tabText(1), "Список");
    QWidget* nextScope = next.windows->formOf(*windowRow(QStringLiteral("TScopeForm")));
    EXPECT_EQ(next.find<QGroupBox>("ChSelGroupBox", nextScope)->title(), channelCaption) << "its blanks once";
    for (const FormSectionRow& row : formSections()) {
        const FormTexts& saved = next.language.table.form(row.section);
        const FormTexts& loaded = bench.language.table.form(row.section);
        EXPECT_EQ(saved.Hint.Text, loaded.Hint.Text) << row.header;
        if (row.section == FormSection::AutoTuning || row.section == FormSection::PID ||
            row.section == FormSection::QuickSetup) {
            EXPECT_EQ(saved.Label.Text, loaded.Label.Text) << row.header;
        }
    }
}

TEST(Manuals, OpenByTheirNumberOrSayThatNothingCanShowThem) {
    ShellBench bench;
    QStringList opened;
    bench.person.expectBox("Please install the Adobe Acrobat first !!", "Error");
    bench.trigger("SoftManuEng");
    bench.tool->viewer = {.pdfViewers =
                              [] {
                                  return QStringList{"AdobeAcrobat.desktop", "reader.desktop"};
                              },
                          .open = [&](const QString& path) { opened << path; }};
    bench.trigger("SoftManuEng");
    EXPECT_TRUE(opened.isEmpty()) << "not there, and silent";
    QDir(bench.folder.path()).mkpath("user manual");
    for (const auto& [item, code] :
         {std::pair("SoftManuCHT", "CHT"), {"SoftManuJap", "Jap"}, {"Spanish1", "Spa"}}) {
        const QString path = bench.folder.file(QStringLiteral("user manual/Kelvane_%1.pdf").arg(code));
        writeWhole(path, "%PDF");
        bench.trigger(item);
        EXPECT_EQ(opened.last(), path);
    }
    EXPECT_FALSE(bench.find<QAction>("UserManual")->isEnabled());
    bench.tool->UserManualClick();
    const QString history = bench.find<QPlainTextEdit>("MessageMemo")->toPlainText();
    EXPECT_TRUE(history.contains(" > AdobeAcrobat.desktop 6\n"));
    EXPECT_TRUE(history.endsWith(" > reader.desktop 0"));
}

}  // namespace
}  // namespace kelvane
