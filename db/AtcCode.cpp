#include "db/AtcCode.h"

#include "db/Text.h"

namespace rovanel
{

std::string atcFromInternational(std::string_view code)
{
    std::string upper = upperAscii(code);
    if ((upper.size() == 5 || upper.size() == 7) && upper.find(kAtcFiller) == std::string::npos)
        upper.insert(5, 1, kAtcFiller);
    return upper;
}

std::string internationalFromAtc(std::string_view code)
{
    std::string result(code);
    if (result.size() >= 6 && result[5] == kAtcFiller) result.erase(5, 1);
    return result;
}

}  // namespace rovanel
