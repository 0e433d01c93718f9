#include "propertysheet.h"
#include "colorbutton.h"
#include "pagebuilder.h"

#include <QtCore/QEvent>
#include <QtCore/QMetaEnum>
#include <QtCore/QSignalBlocker>
#include <QtCore/QSize>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QDoubleSpinBox>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QSpinBox>

#include <utility>

namespace {

constexpr int kLargestNumber = 1000000;

QString separator()
{
    return QStringLiteral("; ");
}

QString textOf(const QVariant &value)
{
    if (value.userType() == QMetaType::QSize)
        return QStringLiteral("%1 x %2").arg(value.toSize().width()).arg(value.toSize().height());
    if (value.userType() == QMetaType::QColor)
        return value.value<QColor>().name(QColor::HexArgb);
    return value.userType() == QMetaType::QStringList ? value.toStringList().join(separator())
                                                      : value.toString();
}

/// As the panel and the editors have it: an enumerator by its name.
QString textOf(const QMetaProperty &property, const QVariant &value)
{
    if (!property.isEnumType())
        return textOf(value);
    const QMetaEnum enumerators = property.enumerator();
    return QString::fromLatin1(property.isFlagType() ? enumerators.valueToKeys(value.toInt())
                                                     : QByteArray(enumerators.valueToKey(value.toInt())));
}

const QMetaObject *shownClass(const QWidget *widget)
{
    const QMetaObject *meta = widget->metaObject();
    while (meta->propertyOffset() == meta->propertyCount())
        meta = meta->superClass();
    return meta;
}

} // namespace

PropertySheet::PropertySheet(PageBuilder *page, QWidget *widget)
    : QObject(widget)
    , m_widget(widget)
{
    const QMetaObject *meta = shownClass(widget);
    page->section("Properties",
                  QStringLiteral("What %1 tells form builders, style sheets and scripts of itself.")
                      .arg(QString::fromLatin1(meta->className())));
    for (int at = meta->propertyOffset(); at < meta->propertyCount(); ++at)
        m_entries.append({meta->property(at), {}, meta->property(at).read(widget)});
    for (int index = 0; index < m_entries.size(); ++index)
        m_entries[index].show = newEditor(page, index);
    widget->installEventFilter(this);
}

// A property without a signal of its own shows by the painting that something has changed.
bool PropertySheet::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Paint && !m_refreshIsDue) {
        m_refreshIsDue = true;
        QMetaObject::invokeMethod(this, &PropertySheet::refresh, Qt::QueuedConnection);
    }
    return QObject::eventFilter(watched, event);
}

void PropertySheet::write(int index, const QVariant &value)
{
    const QMetaProperty property = m_entries.at(index).property;
    property.write(m_widget, value);
    refresh();
    if (property.read(m_widget) != value) // which was not taken over
        m_entries.at(index).show(property.read(m_widget));
}

void PropertySheet::refresh()
{
    m_refreshIsDue = false;
    const bool isFirst = !std::exchange(m_isLaidOut, true);
    for (Entry &entry : m_entries) {
        const QVariant value = entry.property.read(m_widget);
        if (value == entry.last)
            continue;
        entry.last = value;
        entry.show(value);
        if (isFirst)
            continue;
        report(QStringLiteral("%1 is %2")
                   .arg(QString::fromLatin1(entry.property.name()), textOf(entry.property, value)));
    }
}

PropertySheet::Show PropertySheet::newEditor(PageBuilder *page, int index)
{
    const QMetaProperty property = m_entries.at(index).property;
    const QString name = QString::fromLatin1(property.name());
    const QVariant value = m_entries.at(index).last;
    const auto changed = [this, index](const QVariant &edited) {
        write(index, edited);
    };
    if (property.isWritable() && property.isEnumType() && !property.isFlagType())
        return newChoice(page, index);
    switch (property.isWritable() && !property.isFlagType() ? value.userType() : QMetaType::UnknownType) {
    case QMetaType::Bool: {
        QCheckBox *box = page->checkBox(name, value.toBool(), changed);
        return [box](const QVariant &shown) {
            const QSignalBlocker blocker(box);
            box->setChecked(shown.toBool());
        };
    }
    case QMetaType::Int: {
        QSpinBox *box = page->spinBox(name, -kLargestNumber, kLargestNumber, value.toInt(), changed);
        return [box](const QVariant &shown) {
            const QSignalBlocker blocker(box);
            box->setValue(shown.toInt());
        };
    }
    case QMetaType::Double: {
        QDoubleSpinBox *box =
            page->doubleSpinBox(name, -kLargestNumber, kLargestNumber, value.toDouble(), changed);
        return [box](const QVariant &shown) {
            const QSignalBlocker blocker(box);
            box->setValue(shown.toDouble());
        };
    }
    case QMetaType::QString: {
        QLineEdit *edit = page->lineEdit(name, value.toString(), changed);
        return [edit](const QVariant &shown) {
            const QSignalBlocker blocker(edit);
            if (edit->text() != shown.toString())
                edit->setText(shown.toString());
        };
    }
    case QMetaType::QColor: {
        ColorButton *button = page->color(name, value.value<QColor>(), changed);
        return [button](const QVariant &shown) {
            const QSignalBlocker blocker(button);
            button->setColor(shown.value<QColor>());
        };
    }
    case QMetaType::QSize:
        return newSizeEditor(page, index);
    case QMetaType::QStringList:
        return newListEditor(page, index);
    default:
        return newText(page, index);
    }
}

PropertySheet::Show PropertySheet::newSizeEditor(PageBuilder *page, int index)
{
    const QString name = QString::fromLatin1(m_entries.at(index).property.name());
    const auto size = [this, index] {
        return m_entries.at(index).property.read(m_widget).toSize();
    };
    QSpinBox *width =
        page->spinBox(name + QStringLiteral(": width"), 0, kLargestNumber, size().width(),
                      [this, index, size](int edited) { write(index, QSize(edited, size().height())); });
    QSpinBox *height =
        page->spinBox(name + QStringLiteral(": height"), 0, kLargestNumber, size().height(),
                      [this, index, size](int edited) { write(index, QSize(size().width(), edited)); });
    return [width, height](const QVariant &shown) {
        const QSignalBlocker widthBlocker(width);
        const QSignalBlocker heightBlocker(height);
        width->setValue(shown.toSize().width());
        height->setValue(shown.toSize().height());
    };
}

// Taken over when it is finished: a separator that has just been typed is not an empty text yet.
PropertySheet::Show PropertySheet::newListEditor(PageBuilder *page, int index)
{
    const QString name = QString::fromLatin1(m_entries.at(index).property.name());
    QLineEdit *edit = page->wideLineEdit(name, textOf(m_entries.at(index).last));
    connect(edit, &QLineEdit::editingFinished, this, [this, index, edit] {
        const QString text = edit->text();
        write(index, text.isEmpty() ? QStringList() : text.split(separator()));
    });
    return [edit](const QVariant &shown) {
        if (edit->text() != textOf(shown))
            edit->setText(textOf(shown));
    };
}

PropertySheet::Show PropertySheet::newChoice(PageBuilder *page, int index)
{
    const QMetaProperty property = m_entries.at(index).property;
    const QMetaEnum enumerators = property.enumerator();
    QStringList keys;
    for (int key = 0; key < enumerators.keyCount(); ++key)
        keys << QString::fromLatin1(enumerators.key(key));
    QComboBox *box = page->choice(
        QString::fromLatin1(property.name()), keys, keys.indexOf(textOf(property, m_entries.at(index).last)),
        [this, index, enumerators](int key) { write(index, enumerators.value(key)); });
    return [box, property](const QVariant &shown) {
        const QSignalBlocker blocker(box);
        box->setCurrentIndex(box->findText(textOf(property, shown)));
    };
}

PropertySheet::Show PropertySheet::newText(PageBuilder *page, int index)
{
    const QMetaProperty property = m_entries.at(index).property;
    QLineEdit *edit =
        page->lineEdit(QString::fromLatin1(property.name()), textOf(property, m_entries.at(index).last));
    edit->setReadOnly(true);
    return [edit, property](const QVariant &shown) {
        edit->setText(textOf(property, shown));
    };
}
