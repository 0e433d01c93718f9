#include "bench.h"

#include "orvcommonlib.h"
#include "orvresloader.h"

#include <QtCore/QDir>
#include <QtCore/QDirIterator>
#include <QtCore/QFile>
#include <QtCore/QMap>
#include <QtCore/QSettings>
#include <QtCore/QTemporaryDir>

namespace {

void writeFile(const QString &path, const QByteArray &content)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        qFatal("cannot write %s", qPrintable(path));
}

/// A theme in which so many values refer to one of some colours.
QByteArray themeOf(int values)
{
    constexpr int kColors = 100;
    QByteArray theme = "[Colors]\n";
    for (int i = 0; i < kColors; ++i)
        theme += "color" + QByteArray::number(i) + "=#4b66eb\n";
    theme += "[Parts]\n";
    for (int i = 0; i < values; ++i)
        theme +=
            "part" + QByteArray::number(i) + "=1px solid @color" + QByteArray::number(i % kColors) + '\n';
    return theme;
}

QMap<QString, QString> plainValues(const QString &fileName)
{
    QMap<QString, QString> values;
    QSettings theme(fileName, QSettings::IniFormat);
    const QStringList groups = theme.childGroups();
    for (const QString &group : groups) {
        theme.beginGroup(group);
        const QStringList keys = theme.childKeys();
        for (const QString &key : keys)
            values.insert(key, theme.value(key).toString());
        theme.endGroup();
    }
    return values;
}

void measureTheme(Bench &bench, const QString &folder, int values)
{
    const QString fileName = folder + QStringLiteral("/theme.ini");
    writeFile(fileName, themeOf(values));
    bench.compare(
        QStringLiteral("theme, %1 values that refer to others / QSettings, a map").arg(values),
        [&] {
            OrvResourceLoader loader;
            Bench::keep(loader.loadThemeFile(fileName));
        },
        [&] { Bench::keep(plainValues(fileName)); });
}

quint64 iteratedSize(const QString &folder)
{
    quint64 size = 0;
    QDirIterator files(folder, QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        files.next();
        size += quint64(files.fileInfo().size());
    }
    return size;
}

void measureFolder(Bench &bench, const QString &parent, int folders, int files)
{
    const QString root = parent + QStringLiteral("/%1x%2").arg(folders).arg(files);
    for (int folder = 0; folder < folders * folders; ++folder) {
        const QString path =
            root + QStringLiteral("/folder%1/folder%2").arg(folder / folders).arg(folder % folders);
        QDir().mkpath(path);
        for (int file = 0; file < files; ++file)
            writeFile(path + QStringLiteral("/file%1").arg(file), "content");
    }
    bench.compare(
        QStringLiteral("size of %1 folders with %2 files each / QDirIterator")
            .arg(folders * folders)
            .arg(files),
        [&] { Bench::keep(totalcommon::getDirSize(root)); }, [&] { Bench::keep(iteratedSize(root)); });
}

const BenchGroup group("services", [](Bench &bench) {
    const QTemporaryDir folder;
    measureTheme(bench, folder.path(), 10000);
    measureFolder(bench, folder.path(), 10, 2);
    measureFolder(bench, folder.path(), 10, 20);
});

} // namespace
