#include "orvresloader.h"

#include "themefile.h"

#include <QtCore/QDebug>
#include <QtCore/QFile>
#include <QtCore/QHash>
#include <QtCore/QRegularExpression>
#include <QtCore/QSet>
#include <QtCore/QSettings>

#include <algorithm>

namespace {

/// One pattern for all loaders: none owns it, so that loaders can be copied and destroyed in any order.
const QRegularExpression *referencePattern()
{
    static const QRegularExpression *const pattern =
        new QRegularExpression(QStringLiteral("(@(\\w+)|@{(\\w+)})"));
    return pattern;
}

/// No value makes a style sheet longer than this.
constexpr int kLongestText = 256 * 1024 * 1024;

constexpr QChar kAt = u'@';

QString nameOf(QString reference)
{
    return reference.remove(kAt).remove(QLatin1Char('{')).remove(QLatin1Char('}'));
}

/// False, with the text as it was, when that would make it too long.
bool replaceEverywhere(QString &text, const QString &reference, const QString &value, int longest)
{
    const int growth = value.size() - reference.size();
    if (growth > 0 && text.size() + qint64(text.count(reference)) * growth > longest)
        return false;
    text.replace(reference, value);
    return true;
}

/// Whether a reference can hold this. Nothing is ever joined across anything else to a reference.
bool canBeInReference(QChar unit)
{
    return unit == kAt || unit == u'{' || unit == u'}' || unit == u'_' ||
           (unit.unicode() < 0x80 && unit.isLetterOrNumber());
}

/// References with their values, in the order in which they are replaced.
class References
{
public:
    References(const QStringList &references, const QStringList &values)
        : m_references(references)
        , m_values(values)
    {
        for (int i = 0; i < references.size(); ++i) {
            m_places[references.at(i)].append(i);
            m_lengths.insert(references.at(i).size());
        }
    }

    /// Replaces one after the other, each everywhere in the text as the ones before have left it. Returns the one that
    /// would have made the text longer than allowed, with the text as it was, or -1.
    int replaceIn(QString &text, int longest) const
    {
        QString result;
        int done = 0;
        for (int at = text.indexOf(kAt); at >= 0; at = text.indexOf(kAt, done)) {
            int end = at;
            while (end < text.size() && canBeInReference(text.at(end)))
                ++end;
            result.append(text.constData() + done, at - done);
            done = end;
            QString part = text.mid(at, end - at);
            const int tooLong = replaceInPart(part, longest - result.size() - (text.size() - done));
            if (tooLong >= 0)
                return tooLong;
            result += part;
        }
        text = result.append(text.constData() + done, text.size() - done);
        return -1;
    }

private:
    int replaceInPart(QString &part, int longest) const
    {
        for (int i = nextIn(part, 0); i < m_references.size(); i = nextIn(part, i + 1)) {
            if (!replaceEverywhere(part, m_references.at(i), m_values.at(i), longest))
                return i;
        }
        return -1;
    }

    /// The first reference from `from` on that stands anywhere in the text; their number when there is none.
    int nextIn(const QString &text, int from) const
    {
        int next = m_references.size();
        for (int at = text.indexOf(kAt); at >= 0; at = text.indexOf(kAt, at + 1)) {
            for (const int length : m_lengths) {
                const auto places = m_places.constFind(QStringView(text).mid(at, length));
                if (places == m_places.constEnd())
                    continue;
                const QVector<int>::const_iterator place =
                    std::lower_bound(places->cbegin(), places->cend(), from);
                if (place != places->cend())
                    next = qMin(next, *place);
            }
        }
        return next;
    }

    QStringList m_references;
    QStringList m_values;
    QHash<QStringView, QVector<int>> m_places;
    QSet<int> m_lengths;
};

} // namespace

OrvResourceLoader::OrvResourceLoader()
    : m_referencePattern(referencePattern())
{
}

OrvResourceLoader::OrvResourceLoader(const OrvResourceLoader &other) = default;
OrvResourceLoader &OrvResourceLoader::operator=(const OrvResourceLoader &other) = default;
OrvResourceLoader::~OrvResourceLoader() = default;

QString OrvResourceLoader::load(const QString &fileName)
{
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly)) {
        qWarning() << QLatin1String("load [") + fileName + QLatin1String("] failed:") << file.errorString();
        return {};
    }
    QString text = QString::fromUtf8(file.readAll().constData()); // up to the first NUL
    file.close();
    return text;
}

bool OrvResourceLoader::initConfigFile(const QString &fileName)
{
    QSettings theme(fileName, QSettings::IniFormat);
    qInfo() << "theme name:" << theme.value(QStringLiteral("ThemeName"), QVariant()).toString();

    const QMap<QString, QString> values = ThemeFile::values(theme);
    for (auto value = values.cbegin(); value != values.cend(); ++value)
        m_themeValues.insert(value.key(), value.value());

    // One pass only, deliberately: a value sees those before it resolved and those behind it as they are in
    // the file.
    for (QString &value : m_themeValues) {
        QString resolved = value;
        replaceReferences(resolved, referencesIn(resolved));
        value = resolved;
    }
    return true;
}

QString OrvResourceLoader::loadQssFile(QString fileName)
{
    m_styleSheet.clear();
    return appendQssFile(fileName);
}

QString OrvResourceLoader::appendQssFile(QString fileName)
{
    QString text = load(fileName);
    applyThemeValue(text);
    m_styleSheet.append(text);
    return m_styleSheet;
}

QString OrvResourceLoader::getMatchedValue(const QString &reference) const
{
    const QString name = nameOf(reference);
    QString value = m_themeValues.value(name, QString());
    if (value.isEmpty())
        qInfo() << name << "not exist";
    return value;
}

void OrvResourceLoader::applyThemeValue(QString &text) const
{
    QStringList references = referencesIn(text);
    references.removeDuplicates();
    replaceReferences(text, references);
}

/// Every reference in the text, in order, as often as it appears.
QStringList OrvResourceLoader::referencesIn(const QString &text) const
{
    QStringList references;
    QRegularExpressionMatchIterator matches = m_referencePattern->globalMatch(text);
    while (matches.hasNext())
        references.append(matches.next().captured());
    return references;
}

/// Replaces one reference after the other, each everywhere in the text as the ones before have left it. What would
/// make the text too long stays.
void OrvResourceLoader::replaceReferences(QString &text, QStringList references) const
{
    if (references.isEmpty())
        return;
    QStringList values;
    for (const QString &reference : qAsConst(references))
        values << getMatchedValue(reference);
    const int longest = kLongestText - m_styleSheet.size();
    if (references.size() == 1 && replaceEverywhere(text, references.first(), values.first(), longest))
        return;
    for (;;) {
        const int tooLong = References(references, values).replaceIn(text, longest);
        if (tooLong < 0)
            return;
        const QString reference = references.at(tooLong);
        qWarning() << nameOf(reference) << "makes the text too long";
        for (int i = references.indexOf(reference); i >= 0; i = references.indexOf(reference, i)) {
            references.removeAt(i);
            values.removeAt(i);
        }
    }
}
