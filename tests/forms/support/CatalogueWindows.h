// A shared state over a scratch data directory that holds MSG.DAT and whatever catalogue files a window
// test writes (UTF-8 in the test, Windows-1250 on disk).
#pragma once

#include <QTest>
#include <QWidget>
#include <string>
#include <string_view>

#include "db/Cp1250.h"
#include "db/MessageCatalog.h"
#include "db/MessageTable.h"
#include "db/SharedState.h"
#include "tests/forms/support/Controls.h"
#include "tests/support/ScratchDirectory.h"

struct CatalogueWindowState {
    rovanel::testing::ScratchDirectory directory;
    rovanel::SharedState state;

    CatalogueWindowState()
    {
        std::string messages;
        for (const std::string& line : rovanel::messageCatalogLines()) messages += line + "\r\n";
        directory.write("MSG.DAT", messages);
        state.tables.dataDirectory = directory.path();
        state.tables.messages = rovanel::MessageTable::parse(messages);
    }
    void write(std::string_view name, std::string_view utf8) const
    {
        directory.write(name, rovanel::utf8ToCp1250(utf8));
    }
};

// Types `text` into `widget` key by key, letters outside Latin-1 ("ő", "ű") included.
inline void typeText(QWidget* widget, const QString& text)
{
    for (const QChar c : text)
        QTest::sendKeyEvent(QTest::Click, widget, Qt::Key_unknown, QString(c), Qt::NoModifier);
}
