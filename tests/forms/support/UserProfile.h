// A fresh per-user settings folder for one test: ROVANEL_CONFIG_DIR points at a scratch directory for
// as long as the object lives, and gets its previous value (or absence) back afterwards.
#pragma once

#include <QByteArray>
#include <QtGlobal>

#include "tests/support/ScratchDirectory.h"

class UserProfile
{
public:
    UserProfile() : m_hadValue(qEnvironmentVariableIsSet(kName)), m_previous(qgetenv(kName))
    {
        qputenv(kName, QByteArray::fromStdString(m_directory.path().string()));
    }
    ~UserProfile()
    {
        if (m_hadValue)
            qputenv(kName, m_previous);
        else
            qunsetenv(kName);
    }
    UserProfile(const UserProfile&) = delete;
    UserProfile& operator=(const UserProfile&) = delete;

    [[nodiscard]] const rovanel::testing::ScratchDirectory& directory() const { return m_directory; }

private:
    static constexpr const char* kName = "ROVANEL_CONFIG_DIR";
    rovanel::testing::ScratchDirectory m_directory;
    bool m_hadValue;
    QByteArray m_previous;
};
