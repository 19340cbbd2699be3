// What a window test opens its window on (a shared state over a database folder) and the window itself,
// shown, in a fresh user profile, with every message it shows recorded. A window test includes this
// header alone: it brings the driver and the catches of prints and help (Controls.h).
//   On<TKh> form(database);
//   click(form, "Ellenoriz");
//   QCOMPARE(form.messages.texts(), QStringList{"..."});
#pragma once

#include <QDir>
#include <QStringList>
#include <filesystem>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "app/forms/ShowMessage.h"
#include "db/Cp1250.h"
#include "db/MessageCatalog.h"
#include "db/MessageTable.h"
#include "db/SharedState.h"
#include "tests/fixtures/Databases.h"
#include "tests/forms/support/Controls.h"
#include "tests/support/EngineDatabase.h"
#include "tests/support/ScopedEnvironment.h"
#include "tests/support/ScratchDirectory.h"

// Records every message a window shows instead of opening a modal box, for as long as it lives.
class MessageRecorder
{
public:
    MessageRecorder()
        : m_previous(setMessageShower(
              [this](QWidget*, const rovanel::Message& shown) { m_messages.push_back(shown); }))
    {
    }
    ~MessageRecorder() { setMessageShower(m_previous); }
    MessageRecorder(const MessageRecorder&) = delete;
    MessageRecorder& operator=(const MessageRecorder&) = delete;

    // The messages in the order shown, as the core gave them (Windows-1250).
    [[nodiscard]] const std::vector<rovanel::Message>& messages() const { return m_messages; }
    // Their texts and captions converted to Unicode.
    [[nodiscard]] QStringList texts() const { return converted(&rovanel::Message::text); }
    [[nodiscard]] QStringList captions() const { return converted(&rovanel::Message::caption); }
    void clear() { m_messages.clear(); }
    // The texts shown since the last take.
    [[nodiscard]] QStringList take()
    {
        const QStringList shown = texts();
        clear();
        return shown;
    }

private:
    [[nodiscard]] QStringList converted(std::string rovanel::Message::*part) const
    {
        QStringList result;
        for (const rovanel::Message& message : m_messages)
            result << QString::fromStdString(rovanel::cp1250ToUtf8(message.*part));
        return result;
    }
    std::vector<rovanel::Message> m_messages;
    MessageShower m_previous;
};

// A fresh per-user settings folder for one test: ROVANEL_CONFIG_DIR points at a scratch directory for
// as long as the object lives, and gets its previous value (or absence) back afterwards.
class UserProfile
{
public:
    UserProfile() { m_environment.set("ROVANEL_CONFIG_DIR", m_directory.path().string()); }

    [[nodiscard]] const rovanel::testing::ScratchDirectory& directory() const { return m_directory; }

private:
    rovanel::testing::ScratchDirectory m_directory;
    rovanel::testing::ScopedEnvironment m_environment;
};

// A shared state over a database folder, its start-up tables loaded as the program loads them (without
// user settings): a stored database (the demo or the real one), or a small one written for the test into
// a scratch folder (tests/support/EngineDatabase.h).
struct DatabaseState {
    rovanel::testing::ScratchDirectory directory;
    rovanel::SharedState state;

    explicit DatabaseState(const std::filesystem::path& stored) { open(stored); }
    explicit DatabaseState(const rovanel::testing::EngineDatabase& database)
    {
        database.write(directory);
        open(directory.path());
    }
    void open(const std::filesystem::path& folder) { state.openDatabase(folder, folder / "no-user.ini"); }
};

// The six-product database (tests/fixtures/Databases.h).
struct SixProductState {
    rovanel::testing::SixProductDatabase database;
    std::filesystem::path directory = database.write();
    rovanel::SharedState state;
    SixProductState() { state.openDatabase(directory, directory / "no-user.ini"); }
};

// A scratch data folder that holds MSG.DAT and whatever catalogue files the test writes (UTF-8 in the
// test, Windows-1250 on disk).
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

// A fresh user profile (where windows keep their places and settings), and every message recorded.
struct WindowSurroundings {
    UserProfile profile;
    MessageRecorder messages;
};

// The program's start: the tiny database (tests/fixtures/Databases.h) with the title pictures as the
// working directory, in a fresh profile, every message recorded.
struct TinyDatabaseStart : WindowSurroundings {
    rovanel::testing::ScratchDirectory data;
    QString previousDirectory = QDir::currentPath();

    TinyDatabaseStart()
    {
        rovanel::testing::writeTinyDatabase(data);
        for (const char* name : {"Rg0.jpg", "Rg1.jpg", "r1.jpg", "r2.jpg"})
            std::filesystem::copy_file(std::filesystem::path(ROVANEL_SOURCE_DIR) / "data" / "demo" / name,
                                       data.path() / name);
        QDir::setCurrent(QString::fromStdString(data.path().string()));
    }
    ~TinyDatabaseStart() { QDir::setCurrent(previousDirectory); }
};

// A window made from `arguments` and shown, its surroundings made before it and gone after it.
template <class Form>
struct Shown : WindowSurroundings, Form {
    template <class... Arguments>
    explicit Shown(Arguments&&... arguments) : Form(std::forward<Arguments>(arguments)...)
    {
        Form::show();
    }
};

// A window together with the state it is made on, the state first:
//   On<TKh> form(database);   On<TSegedeszk, Aids> form;   ... form.state, form.messages ...
template <class Form, class State = DatabaseState>
struct On : State, Shown<Form> {
    template <class... Arguments>
    explicit On(Arguments&&... arguments)
        : State(std::forward<Arguments>(arguments)...), Shown<Form>(State::state)
    {
    }
};
