#include "themefile.h"

#include <QtCore/QSettings>
#include <QtCore/QStringList>

QMap<QString, QString> ThemeFile::values(QSettings &file)
{
    QMap<QString, QString> values;
    const auto insertKeys = [&values, &file] {
        const QStringList keys = file.childKeys();
        for (const QString &key : keys)
            values.insert(key, file.value(key).toString());
    };
    insertKeys();
    const QStringList groups = file.childGroups();
    for (const QString &group : groups) {
        file.beginGroup(group);
        insertKeys();
        file.endGroup();
    }
    return values;
}
