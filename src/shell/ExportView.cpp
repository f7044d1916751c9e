#include "shell/ExportView.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "documents/ExportWindow.h"
#include "shell/CoreCall.h"

namespace zeph::gui {

ExportView::ExportView(CharacterSheet& character, const MenuSources& menus, QWidget* parent)
    : QMainWindow(parent), model_(std::make_unique<ExportWindow>(character)) {
    setAttribute(Qt::WA_DeleteOnClose);
    commands_["FileClose"] = [this] { close(); };
    forms_ = new QComboBox;
    forms_->setObjectName("PopupMenu1");
    forms_->setAccessibleName("Export form");
    for (const std::string& form : model_->PopupMenu1.Rows()) {
        if (form == "-") forms_->insertSeparator(forms_->count());
        else forms_->addItem(QString::fromStdString(form));
    }
    forms_->setCurrentIndex(-1);
    result_ = new QPlainTextEdit;
    result_->setObjectName("EditField1");
    result_->setAccessibleName("Export result");
    result_->setLineWrapMode(QPlainTextEdit::NoWrap);
    result_->setFont(QFont("Monospace"));
    preview_ = new QPushButton("Preview in Browser");
    save_ = new QPushButton("Save Export");
    save_->setDefault(true);
    auto* close = new QPushButton("Close");

    // A form chosen again runs the export again, discarding edits, as a new one does.
    connect(forms_, &QComboBox::activated, this, [this] {
        CallCore([&] {
            const std::string form = forms_->currentText().toStdString();
            if (model_->PopupMenu1.Text() == form) model_->PopupMenu1_Change();
            else model_->PopupMenu1.SetText(form);
        });
        showModel();
    });
    connect(result_, &QPlainTextEdit::textChanged, this, [this] {
        model_->EditField1.SetText(result_->toPlainText().toStdString());
    });
    connect(preview_, &QPushButton::clicked, this, [this] { CallCore([&] { model_->PreviewButton_Action(); }); });
    connect(save_, &QPushButton::clicked, this, [this] { CallCore([&] { model_->SaveButton_Action(); }); });
    connect(close, &QPushButton::clicked, this, &QWidget::close);

    auto* top = new QHBoxLayout;
    top->addWidget(new QLabel("Convert To:"));
    top->addWidget(forms_);
    top->addStretch(1);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(preview_);
    buttons->addStretch(1);
    buttons->addWidget(close);
    buttons->addWidget(save_);
    auto* central = new QWidget;
    auto* layout = new QVBoxLayout(central);
    layout->addLayout(top);
    layout->addWidget(result_, 1);
    layout->addLayout(buttons);
    setCentralWidget(central);
    if (menus.recentItems) BuildMenuBar(*this, menus);
    resize(720, 560);
    showModel();
}

ExportView::~ExportView() = default;

void ExportView::showModel() {
    setWindowTitle(QString::fromStdString(model_->Title()));
    const QString text = QString::fromStdString(model_->EditField1.Text());
    if (result_->toPlainText() != text) result_->setPlainText(text);
    preview_->setVisible(model_->PreviewButton.Visible());
    save_->setEnabled(model_->SaveButton.Value());
}

}  // namespace zeph::gui
