#include "colorbutton.h"
#include "orvresloader.h"
#include "pagebuilder.h"

#include <QtCore/QFile>
#include <QtCore/QRegularExpression>
#include <QtCore/QTemporaryDir>
#include <QtCore/QTimer>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QPlainTextEdit>
#include <QtWidgets/QProgressBar>
#include <QtWidgets/QPushButton>

namespace {

constexpr int kApplyDelayMs = 200; // after the last key press
constexpr int kTallTextHeight = 172;

const char *const kTheme = R"([General]
ThemeName=camera
[Colors]
accent=#4257FF
paper=#F5F6F7
ink=#1F1F22
frame=@accent
[Shape]
radius=8px
)";

const char *const kSheet = R"(#form { background: @paper; border: 1px solid @frame; border-radius: @radius; }
#form QLabel { color: @ink; font-size: 15px; }
#form QLineEdit { background: white; color: @ink; border: 1px solid @frame; border-radius: 4px; padding: 6px; }
#form QPushButton { background: @{accent}; color: white; border: none; }
#form QPushButton { border-radius: @radius; padding: 8px 18px; }
#form QProgressBar { border: none; background: white; max-height: 6px; }
#form QProgressBar::chunk { background: @accent; border-radius: 3px; }
)";

QWidget *newForm(QWidget *parent)
{
    auto *form = new QWidget(parent);
    form->setObjectName(QStringLiteral("form"));
    form->setAttribute(Qt::WA_StyledBackground);
    auto *progress = new QProgressBar(form);
    progress->setValue(62);
    progress->setTextVisible(false);
    auto *row = new QHBoxLayout;
    row->addWidget(new QLineEdit(QStringLiteral("Front camera"), form));
    row->addWidget(new QPushButton(QStringLiteral("Connect"), form));
    auto *layout = new QVBoxLayout(form);
    layout->setContentsMargins(20, 16, 20, 20);
    layout->setSpacing(12);
    layout->addWidget(new QLabel(QStringLiteral("Connect a camera"), form));
    layout->addLayout(row);
    layout->addWidget(progress);
    return form;
}

/// Writes theme and sheet into files, as a client has them, loads them, and applies the result to the form.
class Workbench : public QObject
{
public:
    Workbench(QPlainTextEdit *theme, QPlainTextEdit *sheet, QPlainTextEdit *result, QWidget *form)
        : QObject(form)
        , m_theme(theme)
        , m_sheet(sheet)
        , m_result(result)
        , m_form(form)
    {
        m_delay.setSingleShot(true);
        m_delay.setInterval(kApplyDelayMs);
        connect(&m_delay, &QTimer::timeout, this, &Workbench::apply);
        for (QPlainTextEdit *edit : {theme, sheet})
            connect(edit, &QPlainTextEdit::textChanged, &m_delay, QOverload<>::of(&QTimer::start));
        apply();
    }

    /// Puts the colour into the theme, where the text says name=...
    void setColor(const QString &name, const QColor &color)
    {
        QString text = m_theme->toPlainText();
        const QRegularExpression line(QStringLiteral("^%1=.*$").arg(name),
                                      QRegularExpression::MultilineOption);
        m_theme->setPlainText(text.replace(line, QStringLiteral("%1=%2").arg(name, color.name())));
    }

private:
    void apply()
    {
        OrvResourceLoader loader;
        loader.loadThemeFile(written(QStringLiteral("theme%1.ini").arg(++m_round), m_theme->toPlainText()));
        const QString sheet =
            loader.loadQssFile(written(QStringLiteral("sheet.qss"), m_sheet->toPlainText()));
        m_result->setPlainText(sheet);
        m_form->setStyleSheet(sheet);
    }

    QString written(const QString &name, const QString &text) const
    {
        QFile file(m_folder.filePath(name));
        if (file.open(QIODevice::WriteOnly))
            file.write(text.toUtf8());
        return file.fileName();
    }

    QTemporaryDir m_folder;
    QTimer m_delay;
    int m_round = 0; // settings files of one name are cached
    QPlainTextEdit *m_theme;
    QPlainTextEdit *m_sheet;
    QPlainTextEdit *m_result;
    QWidget *m_form;
};

void build(PageBuilder &page)
{
    page.include("orvresloader.h");
    page.section(
        "Live",
        "Change a value of the theme or a line of the sheet, and see the form follow. A name that the "
        "theme does not have is told below.");
    QWidget *form = newForm(page.widget());
    page.wideExample(form);
    ColorButton *accent = page.color("accent", QColor(0x42, 0x57, 0xFF));
    ColorButton *paper = page.color("paper", QColor(0xF5, 0xF6, 0xF7));
    QPlainTextEdit *theme = page.textEdit("Theme", QString::fromUtf8(kTheme));
    QPlainTextEdit *sheet = page.textEdit("Style sheet", QString::fromUtf8(kSheet));
    QPlainTextEdit *result = page.textEdit("What the loader makes of them", QString());
    for (QPlainTextEdit *edit : {theme, sheet, result}) {
        setGalleryRole(edit, "code");
        edit->setLineWrapMode(QPlainTextEdit::NoWrap);
        edit->setFixedHeight(kTallTextHeight);
    }
    result->setReadOnly(true);

    auto *workbench = new Workbench(theme, sheet, result, form);
    QObject::connect(accent, &ColorButton::colorChanged, workbench, [workbench](const QColor &color) {
        workbench->setColor(QStringLiteral("accent"), color);
    });
    QObject::connect(paper, &ColorButton::colorChanged, workbench, [workbench](const QColor &color) {
        workbench->setColor(QStringLiteral("paper"), color);
    });

    page.section(
        "How it resolves",
        "<b>@name</b> and <b>@{name}</b> mean the same. Values are resolved once, in the order of their "
        "names: "
        "<b>frame</b> may refer to <b>accent</b>, which comes before it; the other way round it would stay "
        "unresolved. Names are replaced as plain text, one after the other: <b>@main</b> also replaces the "
        "beginning of <b>@mainText</b> when it comes first.");
}

const GalleryPage &page = GalleryPage::add(
    GalleryFamily::Services, "OrvResourceLoader",
    "Resolves the values of a theme in style sheets: a theme is an INI file, a sheet refers to it by @name.",
    build);

} // namespace
