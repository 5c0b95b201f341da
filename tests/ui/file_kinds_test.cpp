// Nobody looks into the files of a folder list.
#include "ui/file_kinds.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QFileSystemModel>
#include <QSignalSpy>
#include <QTemporaryDir>

namespace kelvane {
namespace {

TEST(FileKinds, AreToldByNameAlone) {
    QTemporaryDir dir;
    QFile picture(dir.filePath("table.csv"));  // by its name
    ASSERT_TRUE(picture.open(QIODevice::WriteOnly) && picture.write("GIF89a") > 0);
    picture.close();
    QFileSystemModel model;
    model.setIconProvider(&fileKinds());
    QSignalSpy loaded(&model, &QFileSystemModel::directoryLoaded);
    const QModelIndex root = model.setRootPath(dir.path());
    ASSERT_TRUE(loaded.count() > 0 || loaded.wait(20000));
    QCoreApplication::processEvents();
    EXPECT_GE(model.rowCount(root), 1);
    const QModelIndex table = model.index(dir.filePath("table.csv"));
    EXPECT_EQ(model.type(table), "csv File");
    EXPECT_FALSE(model.fileIcon(table).isNull());
    EXPECT_EQ(model.type(model.index(dir.path())), "Folder");
}

}  // namespace
}  // namespace kelvane
