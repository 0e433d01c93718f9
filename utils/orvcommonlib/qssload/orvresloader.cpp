#include "orvresloader.h"

#include "referencereplacer.h"

#include <QtCore/QDebug>
#include <QtCore/QFile>
#include <QtCore/QRegularExpression>
#include <QtCore/QSet>
#include <QtCore/QSettings>

namespace {

/// One pattern for all loaders: none owns it, so that loaders can be copied and destroyed in any order.
const QRegularExpression *referencePattern()
{
    static const QRegularExpression *const pattern =
        new QRegularExpression(QStringLiteral("(@(\\w+)|@{(\\w+)})"));
    return pattern;
}

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
    QString text = QString::fromUtf8(file.readAll());
    file.close();
    return text;
}

bool OrvResourceLoader::initConfigFile(const QString &fileName)
{
    QSettings theme(fileName, QSettings::IniFormat);
    qInfo() << "theme name:" << theme.value(QStringLiteral("ThemeName"), QVariant()).toString();

    const auto insertKeys = [this, &theme] {
        const QStringList keys = theme.childKeys();
        for (const QString &key : keys)
            m_themeValues.insert(key, theme.value(key).toString());
    };
    insertKeys();
    const QStringList groups = theme.childGroups();
    for (const QString &group : groups) {
        theme.beginGroup(group);
        insertKeys();
        theme.endGroup();
    }

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
    QString name = reference;
    name.remove(QLatin1Char('@')).remove(QLatin1Char('{')).remove(QLatin1Char('}'));
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

/// Replaces one reference after the other, each everywhere in the text as the ones before have left it.
void OrvResourceLoader::replaceReferences(QString &text, const QStringList &references) const
{
    if (references.isEmpty())
        return;
    ReferenceReplacer replacer(text);
    for (const QString &reference : references)
        replacer.add(reference, getMatchedValue(reference));
    text = replacer.result();
}
