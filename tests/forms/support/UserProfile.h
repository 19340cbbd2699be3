// A fresh per-user settings folder for one test: ROVANEL_CONFIG_DIR points at a scratch directory for
// as long as the object lives, and gets its previous value (or absence) back afterwards.
#pragma once

#include "tests/support/ScopedEnvironment.h"
#include "tests/support/ScratchDirectory.h"

class UserProfile
{
public:
    UserProfile() { m_environment.set("ROVANEL_CONFIG_DIR", m_directory.path().string()); }

    [[nodiscard]] const rovanel::testing::ScratchDirectory& directory() const { return m_directory; }

private:
    rovanel::testing::ScratchDirectory m_directory;
    rovanel::testing::ScopedEnvironment m_environment;
};
