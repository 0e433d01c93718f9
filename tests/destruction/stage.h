#pragma once

#include "qhotkey/fakeregistry.h"

#include <QtCore/QByteArray>
#include <QtCore/QEvent>
#include <QtCore/QMap>
#include <QtCore/QMetaMethod>
#include <QtCore/QObject>
#include <QtCore/QPointer>
#include <QtCore/QVector>
#include <QtWidgets/QWidget>

#include <functional>
#include <memory>

/// Objects, what happens to them, and a client that destroys them in what they tell it.
namespace Destruction {

/// What an object lives in.
struct Surroundings
{
    QPointer<QWidget> window;
    QPointer<QWidget> parent;
    std::unique_ptr<FakeRegistry> registry;
};

/// One thing that happens to an object. It touches the object, and what belongs to it, in one call only, which may
/// destroy it.
struct Step
{
    QByteArray name;
    std::function<void(QObject *)> action;
};

/// What a client may destroy in what it is told, and when.
enum class Deed { DeleteObject, DeleteParent, DeleteWindow, DeleteLaterInALoop };
constexpr Deed kDeeds[] = {Deed::DeleteObject, Deed::DeleteParent, Deed::DeleteWindow,
                           Deed::DeleteLaterInALoop};

/// One of the classes, with the life of its objects.
struct Kind
{
    QByteArray name;
    std::function<QObject *(Surroundings &)> make;
    QVector<Step> life;
    /// Whose events concern the object, beside its own.
    std::function<QObjectList(const QObject *)> watched;
};

/// What is told, as "clicked()" or "Close", and as "watched Close" where it is an event of another object.
using What = QByteArray;

/// Plays the life of one object, which tells its client of it.
class Stage : public QObject
{
    Q_OBJECT

public:
    explicit Stage(const Kind &kind);
    ~Stage() override;
    Q_DISABLE_COPY(Stage)

    /// When this is told in that step of the life, the client does the deed.
    void plan(const What &what, int step, Deed deed);
    /// Whether Qt survives it: in some events it goes on with their receiver, whoever that is.
    bool isPossible() const;
    void play();

    bool isDone() const { return m_done; }
    bool isAlive() const { return !m_object.isNull(); }
    /// What has been told, with the steps in which it was.
    QMap<What, QVector<int>> told() const { return m_told; }
    /// The signals that have not been emitted.
    QList<What> untold() const;

    bool eventFilter(QObject *watched, QEvent *event) override;

private Q_SLOTS:
    void noteSignal() { note(sender()->metaObject()->method(senderSignalIndex()).methodSignature()); }

private:
    QVector<QMetaMethod> signalsOfTheObject() const;
    bool isDestroyed(const QObject *object) const;
    void note(const What &what);
    void act();

    const Kind &m_kind;
    Surroundings m_in;
    QPointer<QObject> m_object;
    QObjectList m_watched;
    int m_step = -1;
    QMap<What, QVector<int>> m_told;
    What m_plannedWhat;
    int m_plannedStep = -1;
    Deed m_deed = Deed::DeleteObject;
    bool m_done = false;
};

} // namespace Destruction
