// A shared state loaded from a small database written for a window test (tests/support/EngineDatabase.h).
#pragma once

#include <memory>

#include "db/SharedState.h"
#include "tests/support/EngineDatabase.h"

struct EngineWindowState {
    rovanel::testing::ScratchDirectory directory;
    rovanel::SharedState state;

    explicit EngineWindowState(const rovanel::testing::EngineDatabase& database)
    {
        database.write(directory);
        state.tables = rovanel::loadStartupTables(directory.path(), directory.path() / "no-user.ini");
    }
};
