#include "db/AtcCode.h"

#include <gtest/gtest.h>

namespace rovanel
{
namespace
{

TEST(AtcCode, TypedInternationalCodesFindTheCarriedFormAndTheCarriedFormShowsTheInternational)
{
    struct Case {
        std::string_view typed, carried, shown;
    };
    const Case cases[] = {
        {"C", "C", "C"},
        {"c08", "C08", "C08"},
        {"C08C", "C08C", "C08C"},
        {"C08CA", "C08CA-", "C08CA"},
        {"c08ca01", "C08CA-01", "C08CA01"},
        {"C08CA-01", "C08CA-01", "C08CA01"},
        {"C08CA-", "C08CA-", "C08CA"},
        {"C08CA-0103", "C08CA-0103", "C08CA0103"},
        {"", "", ""},
        {"C08CA0123", "C08CA0123", "C08CA0123"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(std::string(c.typed));
        EXPECT_EQ(atcFromInternational(c.typed), c.carried);
        EXPECT_EQ(internationalFromAtc(c.carried), c.shown);
    }
}

}  // namespace
}  // namespace rovanel
