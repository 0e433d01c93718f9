#include "looktable.h"

#include "themefile.h"

#include <QtCore/QRegularExpression>
#include <QtCore/QSettings>

namespace {

// As style sheets read it: a part of 1, of 100 % or of 255.
qreal alphaOf(QString text)
{
    if (text.endsWith(QLatin1Char('%')))
        return text.chopped(1).toDouble() / 100;
    const qreal number = text.toDouble();
    return number <= 1 ? number : number / 255;
}

QColor colorFrom(const QString &text)
{
    static const QRegularExpression function(
        QStringLiteral(
            "^rgba?\\(\\s*(\\d{1,3})\\s*,\\s*(\\d{1,3})\\s*,\\s*(\\d{1,3})\\s*(?:,\\s*([\\d.]+%?)\\s*)?\\)$"),
        QRegularExpression::CaseInsensitiveOption);
    const QString trimmed = text.trimmed();
    const QRegularExpressionMatch match = function.match(trimmed);
    if (!match.hasMatch())
        return QColor::isValidColor(trimmed) ? QColor(trimmed) : QColor();
    QColor color(match.captured(1).toInt(), match.captured(2).toInt(), match.captured(3).toInt());
    if (!match.captured(4).isEmpty())
        color.setAlphaF(qBound<qreal>(0, alphaOf(match.captured(4)), 1));
    return color;
}

// One form for every colour: a theme may write colours in forms that style sheets do not read.
QString sheetText(const QColor &color)
{
    return color.name(color.alpha() == 255 ? QColor::HexRgb : QColor::HexArgb).toUpper();
}

} // namespace

LookTable &LookTable::instance()
{
    static LookTable table;
    return table;
}

// The texts of light are kept as they stand in the file: clients compare and replace style sheets.
LookTable::LookTable()
{
    // Not a literal: Qt remembers the name for as long as the process lives, the library may be unloaded before.
    QSettings file(QString::fromLatin1(":/orvcommonlib/themes/light.ini"), QSettings::IniFormat);
    const Values values = ThemeFile::values(file);
    for (auto value = values.cbegin(); value != values.cend(); ++value) {
        const QColor color = colorFrom(value.value());
        if (color.isValid())
            m_light[value.key()] = {color, value.value()};
    }
    m_inForce = m_light;
    for (const auto &[name, value] : m_light)
        m_names.append(name);
    m_names.sort();
}

// FNV-1a, a character at a time.
std::size_t LookTable::NameHash::operator()(const QString &name) const noexcept
{
    quint32 hash = 2166136261U;
    for (const QChar character : name)
        hash = (hash ^ character.unicode()) * 16777619U;
    return hash;
}

const LookTable::Value *LookTable::find(const QString &name) const
{
    const auto found = m_inForce.find(name);
    return found == m_inForce.cend() ? nullptr : &found->second;
}

QColor LookTable::color(const QString &name) const
{
    const Value *const value = find(name);
    return value ? value->color : QColor();
}

QString LookTable::text(const QString &name) const
{
    const Value *const value = find(name);
    return value ? value->text : QString();
}

bool LookTable::setValues(const Values &values)
{
    bool changed = false;
    for (const auto &[name, light] : m_light) {
        const QColor wanted = colorFrom(values.value(name));
        const bool isLight = !wanted.isValid() || wanted.rgba() == light.color.rgba();
        const Value value = isLight ? light : Value{wanted, sheetText(wanted)};
        Value &inForce = m_inForce[name];
        changed = changed || value.color.rgba() != inForce.color.rgba();
        inForce = value;
    }
    const QColor ground = color(QStringLiteral("dialogGround"));
    m_isDark = qGray(color(QStringLiteral("titleText")).rgb()) > qGray(ground.rgb());
    return changed;
}
