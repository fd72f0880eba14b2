#include "mail/FlagChanges.h"

FlagChanges &FlagChanges::shared() {
    static FlagChanges changes;
    return changes;
}
