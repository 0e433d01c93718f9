#include "accessiblecontent.h"

#include <QtCore/QStringList>
#include <QtCore/QVariant>
#include <QtGui/QTextDocument>
#include <QtGui/QTextDocumentFragment>
#include <QtWidgets/QLabel>

namespace {

constexpr char kMark[] = "_orv_content";

} // namespace

QLabel *AccessibleContent::mark(QLabel *label)
{
    label->setProperty(kMark, true);
    return label;
}

QString AccessibleContent::text(const QWidget *window)
{
    QStringList lines;
    const QList<QLabel *> labels = window->findChildren<QLabel *>();
    for (const QLabel *label : labels) {
        if (label->property(kMark).toBool() && label->isVisibleTo(window))
            lines.append(plain(label->text()));
    }
    return lines.join(QLatin1Char('\n'));
}

QString AccessibleContent::plain(const QString &text)
{
    return Qt::mightBeRichText(text) ? QTextDocumentFragment::fromHtml(text).toPlainText() : text;
}
