#pragma once

#include <QtCore/QFile>
#include <QtCore/QMap>
#include <QtCore/QRegularExpression>
#include <QtCore/QSettings>
#include <QtCore/QStringList>

#include <limits>

/// What a loader is measured by: the same steps, each reference replaced in the whole text before the next
/// one.
class PlainLoader
{
public:
    /// Stops, and says so, when a text becomes longer than this.
    explicit PlainLoader(int longest = std::numeric_limits<int>::max())
        : m_longest(longest)
    {
    }

    bool isTooLong() const { return m_tooLong; }

    void loadThemeFile(const QString &fileName)
    {
        QSettings theme(fileName, QSettings::IniFormat);
        m_log << QStringLiteral("theme name: \"%1\"")
                     .arg(theme.value(QStringLiteral("ThemeName"), QVariant()).toString());
        insertKeys(theme);
        const QStringList groups = theme.childGroups();
        for (const QString &group : groups) {
            theme.beginGroup(group);
            insertKeys(theme);
            theme.endGroup();
        }
        for (QString &value : m_values) {
            QString resolved = value;
            const QStringList found = references(value);
            for (const QString &reference : found)
                replace(resolved, reference);
            value = resolved;
        }
    }

    QString appendQssFile(const QString &fileName)
    {
        QFile file(fileName);
        QString text;
        if (file.open(QIODevice::ReadOnly))
            text = QString::fromUtf8(file.readAll().constData()); // up to the first NUL
        QStringList found = references(text);
        found.removeDuplicates();
        for (const QString &reference : qAsConst(found))
            replace(text, reference);
        m_sheet += text;
        return m_sheet;
    }

    QStringList log() const { return m_log; }

private:
    void replace(QString &text, const QString &reference)
    {
        if (!m_tooLong)
            text.replace(reference, valueOf(reference), Qt::CaseSensitive);
        m_tooLong = m_tooLong || text.size() > m_longest;
    }

    static QStringList references(const QString &text)
    {
        static const QRegularExpression pattern(QStringLiteral("(@(\\w+)|@{(\\w+)})"));
        QStringList result;
        QRegularExpressionMatchIterator matches = pattern.globalMatch(text);
        while (matches.hasNext())
            result << matches.next().captured(0);
        return result;
    }

    void insertKeys(const QSettings &theme)
    {
        const QStringList keys = theme.childKeys();
        for (const QString &key : keys)
            m_values.insert(key, theme.value(key).toString());
    }

    QString valueOf(const QString &reference)
    {
        QString name = reference;
        name.remove(QLatin1Char('@'));
        name.remove(QLatin1Char('{'));
        name.remove(QLatin1Char('}'));
        QString value = m_values.value(name);
        if (value.isEmpty())
            m_log << QStringLiteral("\"%1\" not exist").arg(name);
        return value;
    }

    int m_longest;
    bool m_tooLong = false;
    QMap<QString, QString> m_values;
    QString m_sheet;
    QStringList m_log;
};
