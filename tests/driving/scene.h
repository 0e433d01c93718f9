#pragma once

#include "fakescreens.h"
#include "logcapture.h"

#include <QtCore/QPointer>
#include <QtCore/QSet>
#include <QtCore/QVector>
#include <QtWidgets/QWidget>

#include <functional>
#include <memory>

/// A window with widgets of the library, which anything may happen to, and what has to hold whatever happens.
namespace Driving {

/// One thing that happens, as numbers of which a scene makes what is possible just then.
struct Step
{
    quint8 what;
    quint8 whom;
    quint8 how;
    quint8 much;
};

QVector<Step> randomSteps(quint32 seed, int count);
/// Four bytes are one step.
QVector<Step> stepsOf(const QByteArray &bytes);

/// One of the classes, with what can be done to its objects alone.
struct Kind
{
    const char *name;
    std::function<QWidget *(QWidget *parent, quint8 how)> make;
    QVector<std::function<void(QWidget *, quint8 how, quint8 much)>> own;
    /// Blocks in a loop of its own. Null where there is none.
    std::function<void(QWidget *, quint8 how)> exec;
    /// What is wrong with an object; empty if nothing is.
    std::function<QString(const QWidget *)> wrong;
    /// Whether the value that a user moves lies in its range. Null where there is none.
    std::function<bool(const QWidget *)> isInRange;
};

QVector<Kind> controlKinds();
QVector<Kind> dialogKinds();
inline QVector<Kind> allKinds()
{
    return controlKinds() + dialogKinds();
}

/// Takes owners of the mask as well as the widgets, all of which it owns. After its end it is not used again.
class Scene : public QObject
{
    Q_OBJECT

public:
    /// `chosen` is any number, of which follows which of the kinds stand in the window.
    explicit Scene(const QVector<Kind> &kinds, quint32 chosen = 0);
    ~Scene() override;
    Q_DISABLE_COPY(Scene)

    /// A step by its name.
    static Step step(const char *name, quint8 whom, quint8 how, quint8 much);
    /// Stops after the first step that leaves something broken.
    void play(const QVector<Step> &steps);
    /// What is broken, with the step after which it was; empty if nothing is.
    QString broken() const { return m_broken; }
    /// Ends everything, and looks at what is left.
    void end();

    /// Is told of each step before it is done.
    std::function<void(const QString &)> trace;

private:
    struct Actor
    {
        const Kind *kind;
        QPointer<QWidget> widget;
        bool asksForMask = false; ///< a dialog that was shown with its mask
    };
    struct Deed
    {
        const char *name;
        int weight;
        void (Scene::*action)(const Step &step);
        bool isOfUser; ///< who can move nothing out of its range
    };
    static const QVector<Deed> &deeds();

    void playNext(int limit);
    void perform(const Step &step);
    void breaks(const QString &text);
    void look();
    void lookAtMask();
    void lookAtWindows();
    void lookAtTimers();
    bool isAnyRunning(const QWidget *dialog) const { return m_running.contains(dialog); }

    void addActor(const Kind *kind, quint8 how);
    Actor *actor(const Step &step);
    QWidget *widget(const Step &step);
    QWidget *receiver(const Step &step, QPoint *globalPos);
    void watchSignals(QWidget *widget);

    void press(const Step &step);
    void move(const Step &step);
    void release(const Step &step);
    void doubleClick(const Step &step);
    void click(const Step &step);
    void hover(const Step &step);
    void enter(QPointer<QWidget> target);
    void key(const Step &step);
    void wheel(const Step &step);
    void focus(const Step &step);
    void attention(const Step &step);
    void change(const Step &step);
    void showOrHide(const Step &step);
    void setProperty(const Step &step);
    void callSlot(const Step &step);
    void own(const Step &step);
    void run(const Step &step);
    void replace(const Step &step);
    void turn(const Step &step);
    void fireTimers(const Step &step);
    void setLook(const Step &step);
    void changeScreens(const Step &step);
    void moveWindow(const Step &step);
    void useMask(const Step &step);
    void paint(const Step &step);
    void arm(const Step &step);

private Q_SLOTS:
    void hear();

private:
    const QVector<Kind> m_kinds;
    std::unique_ptr<LogCapture> m_quiet; // Qt has to say of many a thing that it makes no sense
    FakeScreens m_screens;
    WindowsFollowScreens m_follower;
    QPointer<QWidget> m_window;
    QVector<Actor> m_actors;
    QPointer<QWidget> m_entered;
    QVector<const QWidget *> m_running; // dialogs in their exec()
    QSet<void *> m_maskOwners;
    QVector<Step> m_steps;
    int m_next = 0;
    int m_armed = 0; // signals to wait for before the next step is done in one
    bool m_hearing = false;
    int m_heard = 0;
    QString m_broken;
    char m_owners[3];
};

} // namespace Driving
