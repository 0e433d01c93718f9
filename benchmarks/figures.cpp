#include "figures.h"

#include <QtCore/QFile>
#include <QtCore/QJsonDocument>

namespace {

constexpr double kTolerance = 1.2;

QString twoNumbers(double before, double now, int decimals)
{
    return QStringLiteral("%1 -> %2").arg(before, 0, 'f', decimals).arg(now, 0, 'f', decimals);
}

/// What became of one row: empty unless it is slower now.
QString slowdown(const QJsonObject &before, const QJsonObject &now)
{
    const double oursBefore = before.value(QLatin1String("ours")).toDouble();
    const double oursNow = now.value(QLatin1String("ours")).toDouble();
    const double stockBefore = before.value(QLatin1String("stock")).toDouble();
    const double stockNow = now.value(QLatin1String("stock")).toDouble();
    const bool isComparedToStock = stockBefore > 0 && stockNow > 0;
    const double costBefore = isComparedToStock ? oursBefore / stockBefore : oursBefore;
    const double costNow = isComparedToStock ? oursNow / stockNow : oursNow;
    if (costBefore <= 0 || costNow <= costBefore * kTolerance)
        return {};
    const QString figures =
        twoNumbers(oursBefore, oursNow, 1) + QLatin1Char(' ') + now.value(QLatin1String("unit")).toString();
    return isComparedToStock
               ? QStringLiteral("ratio %1 (%2)").arg(twoNumbers(costBefore, costNow, 2), figures)
               : figures;
}

} // namespace

bool Figures::read(const QString &fileName, QJsonObject *figures)
{
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly))
        return false;
    const QJsonDocument document = QJsonDocument::fromJson(file.readAll());
    *figures = document.object();
    return document.isObject();
}

bool Figures::write(const QString &fileName, const QJsonObject &figures)
{
    QJsonObject all;
    read(fileName, &all);
    for (auto group = figures.constBegin(); group != figures.constEnd(); ++group) {
        QJsonObject rows = all.value(group.key()).toObject();
        const QJsonObject measured = group->toObject();
        for (auto row = measured.constBegin(); row != measured.constEnd(); ++row)
            rows.insert(row.key(), *row);
        all.insert(group.key(), rows);
    }
    QFile file(fileName);
    return file.open(QIODevice::WriteOnly) && file.write(QJsonDocument(all).toJson()) > 0 && file.flush();
}

QStringList Figures::slowerRows(const QJsonObject &before, const QJsonObject &now)
{
    QStringList lines;
    for (auto group = now.constBegin(); group != now.constEnd(); ++group) {
        const QJsonObject rowsBefore = before.value(group.key()).toObject();
        const QJsonObject rows = group->toObject();
        for (auto row = rows.constBegin(); row != rows.constEnd(); ++row) {
            const QString change = slowdown(rowsBefore.value(row.key()).toObject(), row->toObject());
            if (!change.isEmpty())
                lines << QStringLiteral("%1: %2: %3").arg(group.key(), row.key(), change);
        }
    }
    return lines;
}
