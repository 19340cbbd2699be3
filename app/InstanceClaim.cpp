#include "app/InstanceClaim.h"

namespace rovanel
{

bool isMainWindowCaption(std::u16string_view caption)
{
    return caption.find(u"Rovanel") != std::u16string_view::npos &&
           caption.find(u"Lez\u00E1rva") != std::u16string_view::npos;
}

}  // namespace rovanel
