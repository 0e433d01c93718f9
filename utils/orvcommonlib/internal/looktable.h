#pragma once

#include <QtCore/QMap>
#include <QtCore/QString>
#include <QtCore/QStringList>
#include <QtGui/QColor>

#include <unordered_map>

/// The named colours of the look in force, for every style sheet and everything painted. Light is in force at first.
///
/// To be used in the GUI thread only.
class LookTable
{
public:
    /// What themes call their values.
    using Values = QMap<QString, QString>;

    static LookTable &instance();

    /// Invalid when there is no such name.
    QColor color(const QString &name) const;
    /// The colour as style sheets write it; empty when there is no such name.
    QString text(const QString &name) const;
    /// Sorted.
    QStringList names() const { return m_names; }
    /// Whether texts are lighter than their ground.
    bool isDark() const { return m_isDark; }

    /// Puts a theme's values in force, light's ones where they are missing or no colours. Returns whether a
    /// colour has changed by that.
    bool setValues(const Values &values);

private:
    Q_DISABLE_COPY(LookTable)

    struct Value
    {
        QColor color;
        QString text;
    };

    // Painting looks colours up all the time. Qt 6's own hash leaves the processor's vector registers in a state in which
    // the comparison that follows takes ten times as long.
    struct NameHash
    {
        std::size_t operator()(const QString &name) const noexcept;
    };
    using Table = std::unordered_map<QString, Value, NameHash>;

    LookTable();
    const Value *find(const QString &name) const;

    Table m_light;
    Table m_inForce;
    QStringList m_names;
    bool m_isDark = false;
};

/// The colour in force of that name, for what is painted.
inline QColor lookColor(const QString &name)
{
    return LookTable::instance().color(name);
}
