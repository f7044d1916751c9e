# The equipment page on the sample data: two items, then the encumbrance at Strength 5.9 (5).
data data/rules/sample.xml
do EquipmentTypePopup_GotFocus
choose EquipmentTypePopup Weapons
expect savedChar true
do EquipmentField_ContextualMenuAction Hunter's Knife
do EquipmentField_ContextualMenuAction Revolver
expect savedChar false
set StrengthTotal 5.9
do EncumButton_Action
expect EquipmentField.runs [b]Hunter's Knife|\nDamage: D4 x Strength. Damage Type: Slashing. Range: Close. Weight: 0.3 kg. \nReference: ZSB p. 120. \nNotes: A broad single-edged blade.\n\n|[b]Revolver|\nDamage: D6 x 3. Damage Type: Bullet. Range: 15/45 m. Capacity: 6. Weight: 1.1 kg. Period: Modern. cost: 250 crowns. \nReference: ZSB p. 121. \nLifting Capacity = 250lbs /125kg. Throwing Capacity = 225lbs/113kg.\nUp to 125/63 = No penalty.\n126/63 to 312/156 = -1 penalty. D4(2) Endurance per 10 minutes. (Light)\n313/157 to 375/188 = -2 penalty. D4(2) Endurance per 5 minutes. (Medium)\n376/188 to 437/219 = -3 penalty. D4(2) Endurance per 2 minutes. (Heavy)\n438/219 to 500/250 = -5 penalty. D4(2) Endurance per minute. (Extra Heavy)\n
