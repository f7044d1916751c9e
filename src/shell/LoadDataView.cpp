// The Load Data window: the known data files, each marked when the linter finds mistakes in
// it, the path of the chosen one, and the buttons; Check opens the findings of the chosen file.
#include <QApplication>
#include <QClipboard>
#include <QDialog>
#include <QDialogButtonBox>
#include <QFontDatabase>
#include <QHBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QShortcut>
#include <QStyle>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "app/App.h"
#include "shell/CharWindow.h"
#include "shell/ToolView.h"
#include "tools/DataFileManager.h"

namespace zeph::gui {
namespace {

// The delete keys, by the codes the list's key operation knows them by.
constexpr std::pair<Qt::Key, const char*> kDeleteKeys[] = {{Qt::Key_Delete, "16"},
                                                           {Qt::Key_Backspace, "8"}};

QString q(const std::string& text) { return QString::fromStdString(text); }

// A file with warnings or errors shows the matching icon before its name.
void markRow(QTreeWidget& list, LoadDataWindow& model, int row) {
    QTreeWidgetItem* item = list.topLevelItem(row);
    if (item == nullptr) return;
    const std::string mark = model.LintMark(row);
    const auto icon =
        mark == "errors" ? QStyle::SP_MessageBoxCritical : QStyle::SP_MessageBoxWarning;
    item->setIcon(0, mark.empty() ? QIcon() : list.style()->standardIcon(icon));
    item->setToolTip(0, mark.empty() ? QString()
                                     : q("The linter finds " + mark +
                                         " in this file: choose it and press Check."));
}

// The findings as text to select and copy; the button copies the place of the finding under
// the cursor as FILE:LINE, which editors open at that line.
void showCheckWindow(const LoadDataWindow& model, QWidget& parent) {
    auto* window = new QWidget(&parent, Qt::Window);
    window->setAttribute(Qt::WA_DeleteOnClose);
    window->setWindowTitle("Check");
    auto* text = new QPlainTextEdit(q(model.CheckReport.Text()));
    text->setObjectName("CheckReport");
    text->setReadOnly(true);
    text->setLineWrapMode(QPlainTextEdit::NoWrap);
    auto* copy = new QPushButton("Copy FILE:LINE");
    QObject::connect(copy, &QPushButton::clicked, text, [text, findings = model.CheckedFindings()] {
        const auto block = static_cast<std::size_t>(text->textCursor().blockNumber());
        if (block < findings.size())
            QApplication::clipboard()->setText(
                q(findings[block].file + ":" + std::to_string(findings[block].line)));
    });
    auto* layout = new QVBoxLayout(window);
    layout->addWidget(text, 1);
    layout->addWidget(copy, 0, Qt::AlignRight);
    window->resize(720, 360);
    ShowInFront(*window);
}

// The sheets of the character windows open now.
std::vector<CharacterSheet*> openSheets() {
    std::vector<CharacterSheet*> sheets;
    for (QWidget* widget : QApplication::topLevelWidgets())
        if (auto* window = dynamic_cast<CharWindow*>(widget); window && window->isVisible())
            sheets.push_back(&window->Sheet());
    return sheets;
}

// With characters open, the switch waits for the user to read what it would change on them;
// with none, it goes ahead as ever. A file that cannot be read has had its failure shown and
// keeps the file in use.
bool confirmSwitch(App& app, QWidget& parent, const std::string& path) {
    const std::vector<CharacterSheet*> sheets = openSheets();
    if (sheets.empty()) return true;
    const std::optional<std::string> report = app.DataSwitchReport(sheets, path);
    if (!report) return false;
    QDialog* dialog = MakeDataSwitchDialog(*report, &parent);
    const bool accepted = dialog->exec() == QDialog::Accepted;
    dialog->deleteLater();
    return accepted;
}

}  // namespace

QDialog* MakeDataSwitchDialog(const std::string& report, QWidget* parent) {
    auto* dialog = new QDialog(parent);
    dialog->setWindowTitle("What the New Data File Would Change");
    auto* intro = new QLabel(
        "Nothing on a sheet changes until you record again. Recording each row afresh and "
        "recomputing under the new file would give:");
    intro->setWordWrap(true);
    auto* text = new QPlainTextEdit(q(report));
    text->setObjectName("DataSwitchReport");
    text->setAccessibleName("What would change");
    text->setReadOnly(true);
    text->setLineWrapMode(QPlainTextEdit::NoWrap);
    text->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    auto* buttons = new QDialogButtonBox;
    QPushButton* load = buttons->addButton("Load", QDialogButtonBox::AcceptRole);
    load->setObjectName("DataSwitchLoadButton");
    load->setDefault(true);
    buttons->addButton(QDialogButtonBox::Cancel)->setObjectName("DataSwitchCancelButton");
    QObject::connect(buttons, &QDialogButtonBox::accepted, dialog, &QDialog::accept);
    QObject::connect(buttons, &QDialogButtonBox::rejected, dialog, &QDialog::reject);
    auto* layout = new QVBoxLayout(dialog);
    layout->addWidget(intro);
    layout->addWidget(text, 1);
    layout->addWidget(buttons);
    dialog->resize(640, 420);
    return dialog;
}

ToolView* ShowLoadDataView(DataModule& data, Platform& platform, App& app,
                           const MenuSources& menus) {
    auto* view = new ToolView(
        std::make_unique<LoadDataWindow>(
            data, platform, [&app](const std::string& path) { return app.LoadDataFile(path); }),
        menus);
    auto& model = static_cast<LoadDataWindow&>(view->Model());
    model.SetConfirmSwitch(
        [&app, view](const std::string& path) { return confirmSwitch(app, *view, path); });
    auto* list = static_cast<QTreeWidget*>(view->Bind("ListBox1"));
    list->setSelectionMode(QAbstractItemView::SingleSelection);
    QObject::connect(list->model(), &QAbstractItemModel::rowsInserted, list,
                     [list, &model](const QModelIndex&, int first, int last) {
                         for (int row = first; row <= last; ++row) markRow(*list, model, row);
                     });
    for (const auto& [key, code] : kDeleteKeys) {
        auto* shortcut =
            new QShortcut(QKeySequence(key), list, nullptr, nullptr, Qt::WidgetShortcut);
        QObject::connect(shortcut, &QShortcut::activated, view,
                         [view, code = code] { view->Run("ListBox1_KeyDown", code); });
    }
    auto* path = static_cast<QLabel*>(view->Bind("PathText"));
    path->setTextInteractionFlags(Qt::TextSelectableByMouse);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(view->Button("Add File", "AddFileButton_Action"));
    buttons->addWidget(view->Button("Add From Folder", "AddfromFolderButton_Action"));
    buttons->addWidget(view->Button("Remove", "Remove_Action"));
    QPushButton* check = view->Button("Check", "CheckButton_Action");
    QObject::connect(check, &QPushButton::clicked, view, [view, list, &model] {
        for (int row = 0; row < list->topLevelItemCount(); ++row) markRow(*list, model, row);
        if (model.CheckReport.Visible()) showCheckWindow(model, *view);
    });
    buttons->addWidget(check);
    buttons->addStretch(1);
    buttons->addWidget(view->Button("Cancel", "ClosePushButton_Action"));
    buttons->addWidget(view->Button("Load", "LoadButton_Action", true));
    auto* layout = new QVBoxLayout;
    layout->addWidget(list, 1);
    layout->addWidget(path);
    layout->addLayout(buttons);
    view->Finish(layout);
    return view;
}

}  // namespace zeph::gui
