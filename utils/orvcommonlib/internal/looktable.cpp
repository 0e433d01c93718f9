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
            m_light.insert(value.key(), {color, value.value()});
    }
    m_inForce = m_light;
    m_names = m_light.keys();
    m_names.sort();
}

QColor LookTable::color(const QString &name) const
{
    return m_inForce.value(name).color;
}

QString LookTable::text(const QString &name) const
{
    return m_inForce.value(name).text;
}

bool LookTable::setValues(const Values &values)
{
    bool changed = false;
    for (auto light = m_light.cbegin(); light != m_light.cend(); ++light) {
        const QColor wanted = colorFrom(values.value(light.key()));
        const bool isLight = !wanted.isValid() || wanted.rgba() == light->color.rgba();
        const Value value = isLight ? *light : Value{wanted, sheetText(wanted)};
        Value &inForce = m_inForce[light.key()];
        changed = changed || value.color.rgba() != inForce.color.rgba();
        inForce = value;
    }
    const QColor ground = color(QStringLiteral("dialogGround"));
    m_isDark = qGray(color(QStringLiteral("titleText")).rgb()) > qGray(ground.rgb());
    return changed;
}
