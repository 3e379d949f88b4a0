#include "cleaning/Catalog.h"

namespace tavrel {

Catalog::Rules Catalog::rules() const {
    Rules all;
    for (const Rules* group :
         {&xcode, &packageManagers, &devCaches, &ideCaches, &editors, &browsers, &appCaches, &generic}) {
        all.insert(all.end(), group->begin(), group->end());
    }
    return all;
}

}  // namespace tavrel
