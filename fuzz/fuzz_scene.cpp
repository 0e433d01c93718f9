#include "driving/scene.h"
#include "fuzzing.h"

#include <QtCore/QFile>

#include <algorithm>
#include <memory>

using namespace Fuzzing;
using namespace Driving;

namespace {

constexpr int kBytesOfStep = 4;

QVector<Kind> kindsNamed(const QVector<Kind> &kinds, const QByteArrayList &names)
{
    QVector<Kind> chosen;
    std::copy_if(kinds.begin(), kinds.end(), std::back_inserter(chosen),
                 [&names](const Kind &kind) { return names.contains(kind.name); });
    return chosen;
}

/// Steps that follow each other at once: from within one, a dialog's loop or a slot, the next of them may be done.
QByteArray nextSteps(Input &input)
{
    const QByteArray bytes = input.bytes(input.byte() * kBytesOfStep);
    return bytes.left(bytes.size() / kBytesOfStep * kBytesOfStep);
}

/// What the fuzzer goes on with over several inputs: to build the widgets takes far longer than what an input does with
/// them. The one that fails is not enough to have the failure again; the file holds what came before it as well, as one
/// input.
class LastingScene
{
public:
    LastingScene(const QVector<Kind> &kinds, const QString &historyFile)
        : m_kinds(kinds)
        , m_history(historyFile)
    {
    }

    void play(quint8 chosen, Input &input)
    {
        if (!m_scene)
            begin(chosen);
        while (!input.isEmpty())
            playSteps(nextSteps(input));
        if (++m_inputs == kInputs)
            end();
    }

private:
    static constexpr int kInputs = 64;

    void begin(quint8 chosen)
    {
        m_history.open(QIODevice::WriteOnly | QIODevice::Truncate);
        m_history.putChar(char(chosen));
        m_scene = std::make_unique<Scene>(m_kinds, chosen);
        m_inputs = 0;
    }

    void playSteps(const QByteArray &steps)
    {
        m_history.putChar(char(steps.size() / kBytesOfStep));
        m_history.write(steps);
        m_history.flush();
        m_scene->play(stepsOf(steps));
        checkScene();
    }

    void end()
    {
        m_scene->end();
        checkScene();
        m_scene.reset();
        m_history.close();
    }

    void checkScene() const
    {
        if (!m_scene->broken().isEmpty())
            fail(m_scene->broken() + QStringLiteral("\nAll that was done is in ") + m_history.fileName());
    }

    const QVector<Kind> m_kinds;
    QFile m_history;
    std::unique_ptr<Scene> m_scene;
    int m_inputs = 0;
};

void tryScene(const QVector<Kind> &kinds, Input &input)
{
    static const QString historyFile = qEnvironmentVariable("ORV_FUZZ_HISTORY");
    const quint8 chosen = input.byte();
    if (!historyFile.isEmpty()) {
        static auto *const lasting = new LastingScene(kinds, historyFile); // there is one target in a process
        lasting->play(chosen, input);
        return;
    }
    Scene scene(kinds, chosen);
    while (!input.isEmpty() && scene.broken().isEmpty())
        scene.play(stepsOf(nextSteps(input)));
    scene.end();
    if (!scene.broken().isEmpty())
        fail(scene.broken());
}

void tryCombos(Input &input)
{
    static const QVector<Kind> kinds = kindsNamed(controlKinds(), {"CustomShadowCombox", "customcombox"});
    tryScene(kinds, input);
}

void trySliders(Input &input)
{
    static const QVector<Kind> kinds =
        kindsNamed(controlKinds(), {"HorizontalSlider", "NewHorizontalSlider", "CustomSliderBarWidget",
                                    "CustomSlider", "CustomBidirectionSlider"});
    tryScene(kinds, input);
}

void tryDialogs(Input &input)
{
    static const QVector<Kind> kinds =
        kindsNamed(dialogKinds(), {"PopupDlgWithMask", "CommonPopupDialog", "TipsDlgWithCheckbox"});
    tryScene(kinds, input);
}

const Target combos("combo", tryCombos);
const Target sliders("slider", trySliders);
const Target dialogs("dialog", tryDialogs);

} // namespace
