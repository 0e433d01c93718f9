#pragma once

#include <QtCore/QObject>
#include <QtUiPlugin/QDesignerCustomWidgetInterface>

/// What the plugin tells Designer and form loaders of one control.
struct ControlDescription
{
    using Factory = QWidget *(*)(QWidget *parent, bool inDesigner);

    const char *className;
    const char *baseName; ///< the Qt class that it extends, as uic and form loaders know it
    const char
        *objectName; ///< of the first one on a form: never the class's name, which it would hide in form code
    const char *toolTip;    ///< the first sentence of the class's documentation
    QSize size;             ///< of a new one on a form
    const char *properties; ///< those that a new one begins with, as form elements
    Factory make;
};

/// A control in Designer's widget box.
class Control
    : public QObject
    , public QDesignerCustomWidgetInterface
{
    Q_OBJECT
    Q_INTERFACES(QDesignerCustomWidgetInterface)

public:
    /// \param description kept by reference
    Control(const ControlDescription &description, QObject *parent);

    QString name() const override;
    QString group() const override { return QStringLiteral("orvcommonlib"); }
    QString toolTip() const override { return QString::fromLatin1(m_description.toolTip); }
    QString whatsThis() const override { return toolTip(); }
    QString includeFile() const override { return name().toLower() + QStringLiteral(".h"); }
    QIcon icon() const override;
    bool isContainer() const override { return false; }
    QWidget *createWidget(QWidget *parent) override { return m_description.make(parent, m_inDesigner); }
    bool isInitialized() const override { return m_inDesigner; }
    /// Designer calls this, form loaders do not.
    void initialize(QDesignerFormEditorInterface *) override { m_inDesigner = true; }
    QString domXml() const override;

private:
    Q_DISABLE_COPY(Control)

    const ControlDescription &m_description;
    bool m_inDesigner = false;
};
