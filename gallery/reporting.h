#pragma once

#include <QtCore/QDebug>
#include <QtCore/QMetaObject>
#include <QtCore/QObject>
#include <QtCore/QString>
#include <QtCore/QStringList>

#include <type_traits>

/// Prints a line of the page's own into the panel, for example the result of exec().
void report(const QString &text);
/// The same from a UTF-8 literal.
void report(const char *text);

namespace reporting {

void signalEmitted(const QObject *sender, const QString &name, const QStringList &arguments);

template<typename Value, typename = void>
struct IsPrintable : std::false_type
{
};
template<typename Value>
struct IsPrintable<Value, std::void_t<decltype(std::declval<QDebug &>() << std::declval<const Value &>())>>
    : std::true_type
{
};

template<typename Value>
void describe(QStringList &arguments, const Value &value)
{
    if constexpr (std::is_empty_v<Value>) {
        Q_UNUSED(value) // QPrivateSignal: a key, not an argument
        return;
    } else if constexpr (IsPrintable<Value>::value) {
        QString text;
        QDebug(&text).nospace() << value;
        arguments.append(text);
    } else if constexpr (std::is_enum_v<Value>) {
        arguments.append(QString::number(static_cast<int>(value)));
    } else {
        arguments.append(QStringLiteral("..."));
    }
}

} // namespace reporting

/// Prints every emission of the signal into the panel, with its arguments: Class::name(argument, ...).
///   reportSignal(dialog, &CommonPopupDialog::sigClosed, "sigClosed");
/// It lasts as long as the sender. An overloaded signal is picked with QOverload<...>::of().
template<typename Sender, typename Class, typename... Args>
void reportSignal(Sender *sender, void (Class::*signal)(Args...), const char *name)
{
    QObject::connect(sender, signal, sender, [sender, name](const std::decay_t<Args> &...values) {
        QStringList arguments;
        (reporting::describe(arguments, values), ...);
        reporting::signalEmitted(sender, QString::fromUtf8(name), arguments);
    });
}
