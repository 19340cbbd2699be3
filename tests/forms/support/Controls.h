// Finding a window's controls by objectName in a test. A missing control fails the running test with its
// name and hands back a stand-in of the same type, so that the other tests still run (a renamed
// control is one failure, not an aborted program).
//   auto* add = control<QPushButton>(form, "GyToList");
#pragma once

#include <QAbstractItemView>
#include <QComboBox>
#include <QCompleter>
#include <QLineEdit>
#include <QObject>
#include <QTest>
#include <string>

template <typename T>
T* control(const QObject& parent, const char* name, const char* file = __builtin_FILE(),
           int line = __builtin_LINE())
{
    if (T* found = parent.findChild<T*>(name)) return found;
    QTest::qFail(("control " + std::string(name) + " is missing").c_str(), file, line);
    static T* standIn = new T;  // never shown; kept to the end of the program
    return standIn;
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
