#include "shell/StyleBar.h"

#include <QColorDialog>
#include <QComboBox>
#include <QFontDatabase>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QMenu>
#include <QTextEdit>
#include <QToolButton>

#include "text/TextHelpers.h"

namespace zeph::gui {
namespace {

const char* const kSizes[] = {"8",  "9",  "10", "11", "12", "14", "16", "18",
                              "20", "22", "24", "26", "28", "36", "48", "72"};

void merge(QTextEdit& edit, const QTextCharFormat& change) {
    QTextCursor cursor = edit.textCursor();
    if (cursor.hasSelection())
        cursor.mergeCharFormat(change);
    else
        edit.mergeCurrentCharFormat(change);
}

QToolButton* menuButton(const QString& name, const QString& caption, const QStringList& items,
                        const FieldTarget& target,
                        const std::function<void(QTextEdit&, const QString&)>& apply) {
    auto* button = new QToolButton;
    button->setObjectName(name);
    button->setText(caption);
    button->setPopupMode(QToolButton::InstantPopup);
    auto* menu = new QMenu(button);
    for (const QString& item : items)
        QObject::connect(menu->addAction(item), &QAction::triggered, button, [target, apply, item] {
            if (QTextEdit* edit = target()) apply(*edit, item);
        });
    button->setMenu(menu);
    return button;
}

}  // namespace

void ApplyStyle(QTextEdit& edit, const QString& style) {
    const QTextCharFormat now = edit.textCursor().charFormat();
    QTextCharFormat change;
    if (style == "Normal") {
        change.setFontWeight(QFont::Normal);
        change.setFontItalic(false);
        change.setFontUnderline(false);
        change.setForeground(QColor(Qt::black));
    } else if (style == "Bold") {
        change.setFontWeight(now.fontWeight() >= QFont::Bold ? QFont::Normal : QFont::Bold);
    } else if (style == "Italic") {
        change.setFontItalic(!now.fontItalic());
    } else if (style == "Underline") {
        change.setFontUnderline(!now.fontUnderline());
    } else if (style == "Color") {
        const QColor color =
            QColorDialog::getColor(now.foreground().color(), &edit, "Select a Color");
        if (!color.isValid()) return;
        change.setForeground(color);
    }
    merge(edit, change);
}

void ApplySize(QTextEdit& edit, const QString& size) {
    const auto points = Whole(size.toStdString());
    if (points > 0) {
        QTextCharFormat change;
        change.setFontPointSize(static_cast<double>(points));
        return merge(edit, change);
    }
    // The default size is no size at all: the field's own.
    QTextCursor cursor = edit.textCursor();
    QTextCharFormat plain = cursor.charFormat();
    plain.clearProperty(QTextFormat::FontPointSize);
    if (cursor.hasSelection())
        cursor.setCharFormat(plain);
    else
        edit.setCurrentCharFormat(plain);
}

void FormatSelection(QTextEdit& edit, const std::string& command) {
    if (command == "FormatBold") return ApplyStyle(edit, "Bold");
    if (command == "FormatItalic") return ApplyStyle(edit, "Italic");
    if (command == "FormatUnderline") return ApplyStyle(edit, "Underline");
    // Sizes step by two from the size the text names (0: the default), never below 0.
    const QTextCharFormat now = edit.textCursor().charFormat();
    const int size = now.hasProperty(QTextFormat::FontPointSize) ? qRound(now.fontPointSize()) : 0;
    if (command == "FormatBigger") ApplySize(edit, QString::number(size + 2));
    if (command == "FormatSmaller") ApplySize(edit, QString::number(std::max(size - 2, 0)));
}

QWidget* MakeStyleBar(const StyleBarParts& parts) {
    auto* bar = new QWidget;
    auto* layout = new QHBoxLayout(bar);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(menuButton(parts.stylesName, "Styles",
                                 {"Normal", "Bold", "Italic", "Underline", "Color"}, parts.styles,
                                 ApplyStyle));
    QStringList fonts = QFontDatabase::families();
    fonts.sort(Qt::CaseInsensitive);
    layout->addWidget(menuButton(parts.fontsName, "Fonts", fonts, parts.fonts,
                                 [](QTextEdit& edit, const QString& font) {
                                     QTextCharFormat change;
                                     change.setFontFamilies({font});
                                     merge(edit, change);
                                 }));
    auto* size = new QComboBox;
    size->setObjectName(parts.sizeName);
    size->setEditable(true);
    for (const char* points : kSizes) size->addItem(points);
    size->setCurrentText(parts.startSize);
    const auto sizeTo = [size](const FieldTarget& target) {
        if (QTextEdit* edit = target()) ApplySize(*edit, size->currentText());
    };
    QObject::connect(size, &QComboBox::activated, size,
                     [sizeTo, parts] { sizeTo(parts.sizeChosen); });
    QObject::connect(size->lineEdit(), &QLineEdit::textEdited, size,
                     [sizeTo, parts] { sizeTo(parts.sizeTyped); });
    QObject::connect(size->lineEdit(), &QLineEdit::editingFinished, size,
                     [sizeTo, parts] { sizeTo(parts.sizeTyped); });
    layout->addWidget(size);
    layout->addStretch(1);
    // Two bars stand in one window; each control says which field it serves.
    bar->findChild<QToolButton*>(parts.stylesName)->setAccessibleName(parts.area + " styles");
    bar->findChild<QToolButton*>(parts.fontsName)->setAccessibleName(parts.area + " fonts");
    size->setAccessibleName(parts.area + " size");
    return bar;
}

}  // namespace zeph::gui
