#include "base/program_folder.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QTemporaryDir>

#include "base/whole_file.h"

namespace kelvane {
namespace {

TEST(ProgramFolder, IsTheExecutablesFolderIfFilesCanBeMadeThere) {
    const QTemporaryDir root;
    const QString programs = root.filePath(QStringLiteral("bin"));
    const QString user = root.filePath(QStringLiteral("home/kelvane"));
    const QString missing = root.filePath(QStringLiteral("absent/bin"));
    QDir(root.path()).mkpath(QStringLiteral("bin"));
    QDir(root.path()).mkpath(QStringLiteral("share/kelvane"));
    writeWhole(root.filePath(QStringLiteral("share/kelvane/manual")), "shared");

    const ProgramFolder beside = ProgramFolder::decide(programs, user);
    EXPECT_EQ(beside.path(), programs);
    EXPECT_FALSE(QDir(user).exists());
    EXPECT_EQ(beside.findData(QStringLiteral("manual")),
              root.filePath(QStringLiteral("share/kelvane/manual")));
    writeWhole(beside.file(QStringLiteral("manual")), "own");
    EXPECT_EQ(beside.findData(QStringLiteral("manual")), programs + QStringLiteral("/manual"));
    EXPECT_TRUE(beside.findData(QStringLiteral("nowhere")).isEmpty());

    const ProgramFolder ofUser = ProgramFolder::decide(missing, user);
    EXPECT_EQ(ofUser.path(), user);
    EXPECT_TRUE(QDir(user).exists());

    EXPECT_EQ(ProgramFolder::decide(QStringLiteral("/usr/bin"), user).path(),
              user);  // even for an administrator

    const ProgramFolder none = ProgramFolder::decide(missing, programs + QStringLiteral("/manual/folder"));
    EXPECT_EQ(none.path(), missing);
    EXPECT_FALSE(none.error().isEmpty());
}

}  // namespace
}  // namespace kelvane
