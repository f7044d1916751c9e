#include "app/SheetOperations.h"

#include "documents/SavingCharacters.h"
#include "rules/AlternateForms.h"
#include "rules/CharacterTypes.h"
#include "rules/Equipment.h"
#include "rules/MartialMoves.h"
#include "rules/Metaphysics.h"
#include "rules/NotesArea.h"
#include "rules/PointAccounting.h"
#include "rules/Qualities.h"
#include "rules/QualityBonuses.h"
#include "rules/SecondaryAttributes.h"
#include "rules/Skills.h"

namespace zeph {

const OperationTable& SheetOperations() {
    static const OperationTable table = [] {
        OperationTable t;
        AddSheetOperations(t);
        AddCharacterTypeOperations(t);
        AddPointAccountingOperations(t);
        AddSecondaryAttributeOperations(t);
        AddQualityBonusOperations(t);
        AddQualityOperations(t);
        AddMetaphysicsOperations(t);
        AddSkillOperations(t);
        AddMartialMoveOperations(t);
        AddAlternateFormOperations(t);
        AddNotesAreaOperations(t);
        AddEquipmentOperations(t);
        AddSavingOperations(t);
        return t;
    }();
    return table;
}

}  // namespace zeph
