#pragma once

#include <QtCore/QJsonObject>
#include <QtCore/QProcess>
#include <QtCore/QRect>
#include <QtCore/QTemporaryDir>

/// A client of the installed package in a process of its own, and what the probe in it tells (see probe.cpp). Its
/// settings and files lie in a folder that goes with the object, on Windows where the user has them.
class Client
{
public:
    /// \param name of the example, which the fixture of this test has built
    explicit Client(const QString &name);
    ~Client();

    enum Ending { QuitSoon, StayOpen };
    /// \param ending whether the probe ends it when a window has been seen
    void start(Ending ending = StayOpen);
    bool hasEnded() const { return m_process.state() == QProcess::NotRunning; }
    int exitCode() const { return m_process.exitCode(); }
    /// What it has said on standard error since start(), without what the platform says of itself.
    QString warnings() const;

    /// What has been seen until now counts no more, but only what the probe tells next.
    void forget() { m_seen = {}; }
    /// Whether a widget is visible now, as "class/name".
    bool sees(const QString &widget) const { return m_seen.contains(widget); }
    QRect place(const QString &widget) const;
    /// What it shows: the text of a combo box, the value of a slider.
    QString value(const QString &widget) const { return part(widget, "value").toVariant().toString(); }
    bool isChecked(const QString &widget) const { return part(widget, "checked").toBool(); }
    bool isEnabled(const QString &widget) const { return part(widget, "enabled").toBool(); }
    bool hasFocus(const QString &widget) const { return part(widget, "focus").toBool(); }
    /// All that is seen, for messages of failed tests.
    QStringList all() const { return m_seen.keys(); }

private:
    void read();
    QJsonValue part(const QString &widget, const char *name) const;

    QTemporaryDir m_home;
    QProcess m_process;
    QString m_program;
    QByteArray m_errors;
    QJsonObject m_seen;
};
