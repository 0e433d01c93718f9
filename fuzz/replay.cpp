#include "fuzzing.h"

#include <QtCore/QDirIterator>
#include <QtCore/QFile>

#include <algorithm>
#include <cstdio>

// Runs a target once for each file that is named, or lies in a folder that is.
int main(int argc, char **argv)
{
    if (!Fuzzing::begin())
        return 2;
    QStringList files;
    for (int i = 1; i < argc; ++i) {
        const QString path = QString::fromLocal8Bit(argv[i]);
        QDirIterator entries(path, QDir::Files);
        if (!entries.hasNext())
            files << path;
        while (entries.hasNext())
            files << entries.next();
    }
    std::sort(files.begin(), files.end());
    for (const QString &name : qAsConst(files)) {
        QFile file(name);
        if (!file.open(QIODevice::ReadOnly)) {
            std::fprintf(stderr, "fuzz: %s cannot be read\n", qPrintable(name));
            return 2;
        }
        std::fprintf(stderr, "%s\n", qPrintable(name)); // the last one is the one that failed
        const QByteArray input = file.readAll();
        Fuzzing::run(reinterpret_cast<const uint8_t *>(input.constData()), size_t(input.size()));
    }
    std::printf("fuzz: %d inputs replayed\n", int(files.size()));
    return files.isEmpty() ? 2 : 0;
}
