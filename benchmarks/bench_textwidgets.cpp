#include "bench.h"
#include "canvas.h"
#include "customcombox.h"
#include "customkeysequenceedit.h"
#include "customplaintextedit.h"
#include "customwraptexttooltip.h"

#include <QtCore/QCoreApplication>
#include <QtGui/QKeyEvent>
#include <QtWidgets/QAbstractItemView>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>

#include <memory>

namespace {

void pressKey(QWidget &widget, int key)
{
    QKeyEvent event(QEvent::KeyPress, key, Qt::ControlModifier);
    QCoreApplication::sendEvent(&widget, &event);
}

void measureKeySequenceEdit(Bench &bench)
{
    CustomKeySequenceEdit ours(nullptr, QStringLiteral("Type a shortcut"));
    QKeySequenceEdit stock;
    bench.compare(
        "CustomKeySequenceEdit: one chord / QKeySequenceEdit",
        [&] {
            pressKey(ours, Qt::Key_A);
            ours.clear();
        },
        [&] {
            pressKey(stock, Qt::Key_A);
            stock.clear();
        });
    bench.compare(
        "CustomKeySequenceEdit: construction",
        [] { delete new CustomKeySequenceEdit(nullptr, QStringLiteral("Type a shortcut")); },
        [] { delete new QKeySequenceEdit; });
}

// A label with a dark, rounded sheet: what one writes in place of a tooltip whose look QToolTip cannot have.
std::unique_ptr<QLabel> newStockToolTip(const QString &text)
{
    auto label = std::make_unique<QLabel>(text, nullptr, Qt::ToolTip);
    label->setStyleSheet(
        QStringLiteral("QLabel{background:#1F1F22;border-radius:4px;color:#FFFFFF;font-size:13px;"
                       "padding:4px 8px 4px 14px;}"));
    label->setWordWrap(true);
    label->adjustSize();
    return label;
}

void measureToolTip(Bench &bench)
{
    const QString text = QStringLiteral("A tooltip of some words");
    customWrapTextToolTip ours(customWrapTextToolTip::DirectionLeft, 160, nullptr, 8);
    ours.setText(text);
    const std::unique_ptr<QLabel> stock = newStockToolTip(text);
    Canvas canvas(QSize(200, 60));
    bench.compare(
        "customWrapTextToolTip: repaint / QLabel as tooltip", [&] { canvas.paint(ours); },
        [&] { canvas.paint(*stock); });
    bench.compare(
        "customWrapTextToolTip: construction with a text",
        [&] {
            customWrapTextToolTip toolTip;
            toolTip.setText(text);
        },
        [&] { newStockToolTip(text); });
}

void measureComboBox(Bench &bench)
{
    customcombox ours(nullptr);
    QComboBox stock;
    stock.setEditable(true);
    stock.lineEdit()->setReadOnly(true);
    Canvas canvas(QSize(160, 32));
    for (QComboBox *combo : {static_cast<QComboBox *>(&ours), &stock}) {
        combo->addItems({QStringLiteral("first"), QStringLiteral("second")});
        combo->resize(160, 32);
    }
    bench.compare(
        "customcombox: repaint / QComboBox, editable", [&] { canvas.paint(ours); },
        [&] { canvas.paint(stock); });
    bench.compare(
        "customcombox: construction", [] { customcombox combo(nullptr); },
        [] {
            QComboBox combo;
            combo.setEditable(true);
            combo.lineEdit()->setReadOnly(true);
            combo.view()->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
        });
}

void measurePlainTextEdit(Bench &bench)
{
    CustomPlainTextEdit ours;
    QPlainTextEdit stock;
    Canvas canvas(QSize(200, 100));
    for (QPlainTextEdit *edit : {static_cast<QPlainTextEdit *>(&ours), &stock}) {
        edit->setPlainText(QStringLiteral("Some lines\nof text\nto paint"));
        edit->resize(200, 100);
    }
    bench.compare(
        "CustomPlainTextEdit: repaint / QPlainTextEdit", [&] { canvas.paint(ours); },
        [&] { canvas.paint(stock); });
}

const BenchGroup group("textwidgets", [](Bench &bench) {
    measureKeySequenceEdit(bench);
    measureToolTip(bench);
    measureComboBox(bench);
    measurePlainTextEdit(bench);
});

} // namespace
