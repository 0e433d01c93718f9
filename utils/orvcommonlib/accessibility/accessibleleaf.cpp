#include "accessibleleaf.h"

#include "accessiblecontent.h"

#include <QtWidgets/QWidget>

QString AccessibleLeaf::text(QAccessible::Text kind) const
{
    if (kind == QAccessible::Name && widget()->accessibleName().isEmpty())
        return AccessibleContent::plain(ownText());
    return QAccessibleWidget::text(kind);
}
