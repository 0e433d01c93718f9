#pragma once

#include "sheet.h"

namespace Pictures {

/// The page that shows what differs: what is expected, what was painted and the difference side by side, with the command
/// that accepts it.
class Report
{
public:
    /// Begins anew: the folder of an earlier run is removed.
    explicit Report(const QString &folder);

    void add(const QString &widget, const Sheet &expected, const Sheet &actual);
    QString page() const;

private:
    QString imageTag(const QString &name, const QImage &image) const;

    QString m_folder;
    QString m_rows;
};

/// What accepts the pictures of this build.
QString acceptingCommand();

} // namespace Pictures
