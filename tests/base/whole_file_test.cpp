#include "base/whole_file.h"

#include <errno.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <QDir>
#include <QTemporaryDir>

namespace {
int diskError = 0;  // what the disk answers to a flush; 0 flushes
}

// Stands before the system's own, for the disk that fails only when the bytes go down to it.
extern "C" int fdatasync(int file) {
    if (diskError == 0) return static_cast<int>(syscall(SYS_fdatasync, file));
    errno = diskError;
    return -1;
}

namespace kelvane {
namespace {

TEST(WholeFile, LeavesTheOldOneWhenTheDiskFailsAtTheFlush) {
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("table.txt"));
    ASSERT_TRUE(writeWhole(path, "old").ok);
    for (const int error : {EIO, ENOSPC}) {
        diskError = error;
        const FileResult result = writeWhole(path, "new");
        diskError = 0;
        EXPECT_FALSE(result.ok);
        EXPECT_TRUE(result.error.contains(QString::fromLocal8Bit(strerror(error))))
            << result.error.toStdString();
        EXPECT_EQ(readWhole(path).bytes, "old");
        EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files).size(), 1);
    }
    diskError = EINVAL;  // a file system that cannot flush at all
    EXPECT_TRUE(writeWhole(path, "new").ok);
    diskError = 0;
    EXPECT_EQ(readWhole(path).bytes, "new");
}

TEST(WholeFile, ReadsNothingButFiles) {
    const QTemporaryDir folder;
    const QString pipe = folder.filePath(QStringLiteral("pipe"));
    ASSERT_EQ(mkfifo(pipe.toLocal8Bit().constData(), 0600), 0);
    for (const QString& path :
         {pipe, QStringLiteral("/dev/zero"), folder.path(), folder.filePath(QStringLiteral("absent"))}) {
        const FileContent content = readWhole(path, 1000);
        EXPECT_FALSE(content.ok) << path.toStdString();
        EXPECT_TRUE(content.error.startsWith(path));
    }
}

}  // namespace
}  // namespace kelvane
