// Driving a window in a test as a user does, by its controls' objectNames. A missing control fails the
// running test with its name and hands back a stand-in of the same type, so that the other tests still
// run (a renamed control is one failure, not an aborted program). At the end, what a window hands to the
// outside, caught for as long as the catch lives: its prints (as a PDF file read back with poppler), the
// file its "PDF" button asks for, and its help requests.
//   click(form, "GyToList");
//   QCOMPARE(textOf(form, "EredmenyRtf"), "...");
//   QCOMPARE(linesOf(form, "KhGyList"), (QStringList{"ALFA", "GAMMA"}));
#pragma once

#include <QPrinter>
#include <QtTest>
#include <QtWidgets>
#include <filesystem>
#include <initializer_list>
#include <string>

#include "app/forms/Help.h"
#include "rx/PrintLayout.h"
#include "rx/forms/PrintRenderer.h"
#include "tests/support/PdfWords.h"

template <typename T>
T* control(const QObject& parent, const char* name, const char* file = __builtin_FILE(),
           int line = __builtin_LINE())
{
    if (T* found = parent.findChild<T*>(name)) return found;
    QTest::qFail(("control " + std::string(name) + " is missing").c_str(), file, line);
    static T* standIn = new T;  // never shown; kept to the end of the program
    return standIn;
}

// A radio button or check box is clicked on its indicator (a short caption leaves the middle of a wide
// one empty), any other button in its middle.
inline void click(QAbstractButton* button, Qt::MouseButton mouseButton = Qt::LeftButton)
{
    const bool indicator = qobject_cast<QRadioButton*>(button) || qobject_cast<QCheckBox*>(button);
    QTest::mouseClick(button, mouseButton, {}, indicator ? QPoint(6, button->height() / 2) : QPoint());
}
inline void click(const QObject& form, const char* name, const char* file = __builtin_FILE(),
                  int line = __builtin_LINE())
{
    if (auto* button = qobject_cast<QAbstractButton*>(control<QWidget>(form, name, file, line)))
        click(button);
}

// What the user reads on a control: an edit line's or text box's text, a name list's edit text, a
// group box's title, a button's or label's caption.
inline QString textOf(const QObject& form, const char* name, const char* file = __builtin_FILE(),
                      int line = __builtin_LINE())
{
    const QWidget* widget = control<QWidget>(form, name, file, line);
    if (const auto* box = qobject_cast<const QTextEdit*>(widget)) return box->toPlainText();
    if (const auto* box = qobject_cast<const QPlainTextEdit*>(widget)) return box->toPlainText();
    if (const auto* list = qobject_cast<const QComboBox*>(widget)) return list->currentText();
    if (const auto* group = qobject_cast<const QGroupBox*>(widget)) return group->title();
    return widget->property("text").toString();
}

inline QStringList textsOf(const QObject& form, std::initializer_list<const char*> names,
                           const char* file = __builtin_FILE(), int line = __builtin_LINE())
{
    QStringList texts;
    for (const char* name : names) texts << textOf(form, name, file, line);
    return texts;
}

// The lines a list shows in its first column: a list's items, a name list's names, a table's rows, a
// tree's top-level nodes.
inline QStringList linesOf(const QAbstractItemModel& model)
{
    QStringList lines;
    for (int row = 0; row < model.rowCount(); ++row) lines << model.index(row, 0).data().toString();
    return lines;
}
inline QStringList linesOf(const QObject& form, const char* name, const char* file = __builtin_FILE(),
                           int line = __builtin_LINE())
{
    const QWidget* widget = control<QWidget>(form, name, file, line);
    if (const auto* list = qobject_cast<const QComboBox*>(widget)) return linesOf(*list->model());
    if (const auto* view = qobject_cast<const QAbstractItemView*>(widget); view && view->model())
        return linesOf(*view->model());
    return {};
}

// Types `text` into a control key by key, letters outside Latin-1 ("ő", "ű") included.
inline void typeText(QWidget* widget, const QString& text)
{
    for (const QChar c : text)
        QTest::sendKeyEvent(QTest::Click, widget, Qt::Key_unknown, QString(c), Qt::NoModifier);
}
inline void typeInto(const QObject& form, const char* name, const QString& text,
                     const char* file = __builtin_FILE(), int line = __builtin_LINE())
{
    QTest::keyClicks(control<QLineEdit>(form, name, file, line), text);
}

// A double click on a line of a list, table or tree: the press of a click, then the second press.
inline void doubleClick(QAbstractItemView* view, const QModelIndex& index)
{
    view->scrollTo(index);
    const QPoint at = view->visualRect(index).center();
    QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, at);
    QTest::mouseDClick(view->viewport(), Qt::LeftButton, {}, at);
}

// The node of a tree that carries `node` as its data (the tree windows number their nodes so), made
// current with its parents expanded; null when there is none.
inline QTreeWidgetItem* chooseNode(QTreeWidget* tree, int node)
{
    for (QTreeWidgetItemIterator it(tree); *it; ++it) {
        if ((*it)->data(0, Qt::UserRole).toInt() != node) continue;
        for (QTreeWidgetItem* parent = (*it)->parent(); parent; parent = parent->parent())
            parent->setExpanded(true);
        tree->setCurrentItem(*it);
        return *it;
    }
    return nullptr;
}

// The text of a tree's current node; empty when none is current.
inline QString currentNode(const QObject& form, const char* tree)
{
    const QTreeWidgetItem* item = control<QTreeWidget>(form, tree)->currentItem();
    return item ? item->text(0) : QString();
}

// Picks from a name list as a user does: types `typed` into its edit line and presses Enter on the
// filtered list, which picks the first match.
inline void pickByTyping(QComboBox* list, const QString& typed)
{
    list->window()->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(list->window()));
    list->setFocus();
    list->lineEdit()->clear();
    QTest::keyClicks(list->lineEdit(), typed);
    QTRY_VERIFY(list->completer()->popup()->isVisible());
    QTest::keyClick(list->completer()->popup(), Qt::Key_Return);
}

// The printed forms of a window, caught in `file` for as long as this lives: "Direkt" printing, the
// preview, or the file the "PDF" button asks for.
class PdfPrints
{
public:
    enum class Way { Direct, Preview, AskedFile };

    explicit PdfPrints(std::filesystem::path file, Way way = Way::Direct)
        : m_file(std::move(file)), m_way(way)
    {
        if (way == Way::AskedFile) {
            m_previousChooser = rovanel::forms::setPdfFileChooser(
                [this](QWidget*, const QString&) { return QString::fromStdString(m_file.string()); });
            return;
        }
        m_previous = set([this](QPrinter& printer, const auto& paint) {
            ++count;
            orientation = printer.pageLayout().orientation();
            printer.setOutputFormat(QPrinter::PdfFormat);
            printer.setOutputFileName(QString::fromStdString(m_file.string()));
            paint(printer);
        });
    }
    ~PdfPrints()
    {
        if (m_way == Way::AskedFile)
            rovanel::forms::setPdfFileChooser(m_previousChooser);
        else
            set(m_previous);
    }
    PdfPrints(const PdfPrints&) = delete;
    PdfPrints& operator=(const PdfPrints&) = delete;

    [[nodiscard]] std::vector<rovanel::testing::PdfWord> words() const
    {
        return rovanel::testing::pdfWords(m_file);
    }
    // Every word, in order, joined by blanks.
    [[nodiscard]] QString text() const
    {
        QStringList all;
        for (const auto& word : words()) all << QString::fromStdString(word.text);
        return all.join(' ');
    }
    // The text that stands at (left, top) in layout units on the first page.
    [[nodiscard]] QString at(int left, int top) const
    {
        return QString::fromStdString(rovanel::testing::textAt(
            words(), left * rovanel::kMillimetresPerLayoutUnit, top * rovanel::kMillimetresPerLayoutUnit));
    }

    int count = 0;  // prints and previews
    QPageLayout::Orientation orientation = QPageLayout::Portrait;

private:
    rovanel::forms::PrintTarget set(rovanel::forms::PrintTarget target) const
    {
        return m_way == Way::Preview ? rovanel::forms::setPreviewTarget(std::move(target))
                                     : rovanel::forms::setDirectPrintTarget(std::move(target));
    }
    std::filesystem::path m_file;
    Way m_way;
    rovanel::forms::PrintTarget m_previous;
    rovanel::forms::PdfFileChooser m_previousChooser;
};

// The help contexts asked for, instead of opening the help window.
class HelpRequests
{
public:
    HelpRequests() : m_previous(setHelpOpener([this](int context) { contexts.append(context); })) {}
    ~HelpRequests() { setHelpOpener(m_previous); }
    HelpRequests(const HelpRequests&) = delete;
    HelpRequests& operator=(const HelpRequests&) = delete;

    QList<int> contexts;

private:
    HelpOpener m_previous;
};
