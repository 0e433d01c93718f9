#pragma once

#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>

/// A folder with files of themes and sheets.
class ThemeFolder : public QTemporaryDir
{
public:
    /// A new file with this content: QSettings remembers the content of files by their names.
    QString file(const QByteArray &content)
    {
        QFile file(filePath(QString::number(++m_files)));
        if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
            return {};
        return file.fileName();
    }

private:
    int m_files = 0;
};
