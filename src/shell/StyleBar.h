// A style bar over styled fields: a styles button ("Normal", "Bold", "Italic", "Underline",
// "Color"), a fonts button with the system's fonts sorted, and a size box. Each part acts on the
// selection of the field its target names at that moment; the targets are the rules'.
#pragma once

#include <QString>
#include <functional>
#include <string>

class QTextEdit;
class QWidget;

namespace zeph::gui {

using FieldTarget = std::function<QTextEdit*()>;

struct StyleBarParts {
    QString stylesName, fontsName, sizeName, startSize;
    FieldTarget styles, fonts;
    FieldTarget sizeChosen;  // a size picked from the list
    FieldTarget sizeTyped;   // a size typed, or the box left
    QString area;            // what a screen reader says the bar serves: "Description"
};

QWidget* MakeStyleBar(const StyleBarParts& parts);

// One entry of the styles menu on the selection; "Color" asks with the colour dialog.
void ApplyStyle(QTextEdit& edit, const QString& style);
// The size, as the box's text read as a whole number; 0 or less is the default size.
void ApplySize(QTextEdit& edit, const QString& size);
// The Format menu's commands ("FormatBold", "FormatBigger", ...) on the selection.
void FormatSelection(QTextEdit& edit, const std::string& command);

}  // namespace zeph::gui
