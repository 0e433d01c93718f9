#pragma once

#include <QtCore/QString>
#include <QtCore/QStringList>
#include <QtCore/QVector>
#include <QtGui/QImage>

namespace Pictures {

/// The pictures of one widget, each with its name, as they are kept in one file: side by side, and with a text in the
/// file that says where each stands. Pictures that are alike stand there once.
class Sheet
{
public:
    /// An empty sheet where there is no such file.
    static Sheet load(const QString &path);
    bool save(const QString &path) const;

    void add(const QString &name, const QImage &picture);
    QStringList names() const;
    /// A null picture for names that are not on the sheet.
    QImage picture(const QString &name) const;

private:
    struct Cell
    {
        QString name;
        QImage picture;
    };

    QVector<QRect> places() const;

    QVector<Cell> m_cells;
};

/// What is wrong with a picture: nothing, if it is alike but for what the tolerance allows.
QString difference(const QImage &expected, const QImage &actual);
/// Where the two differ: in red on a faint copy of what is expected.
QImage differencePicture(const QImage &expected, const QImage &actual);

/// The names of the pictures in which two sheets differ.
QStringList differingNames(const Sheet &expected, const Sheet &actual);

} // namespace Pictures
