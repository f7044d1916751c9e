# Every kind of step, undone, reads exactly as before ("expect changed" with nothing after it,
# against the state "sheet" marks), figures, rows, choice lists and the saved mark included.
data tests/data/purchase_rules.xml
expect undo 
# A type chosen, taken back: the choice list it filled empties again.
sheet
choose CharacterTypePopup Human
expect undo Choose Character Type
undo
expect changed 
expect redo Choose Character Type
redo
expect ChooseCharPopup.rows Plain
choose ChooseCharPopup Plain
do QualityTypePopup_MouseDown
choose QualityTypePopup Qualities
do QualityPopup_MouseDown
choose QualityPopup Keen Eye
# Arrows, each a step.
sheet
do QualityUpDownArrows_Up
do QualityUpDownArrows_Up
expect undo Raise Quality Level
undo
expect QualityLevelField 1
undo
expect changed 
redo
redo
expect changed QualityCostField=4 ; QualityLevelField=2
# A record: the row, the budgets and the secondary figures go back, and come again whole.
do QualityRecordButton_Action
expect undo Record Quality
undo
expect changed 
redo
expect changed EssenceTotal=6 ; \
  InfoText=Attr(0/20) Q(4/10) D(0/10) S(0/25) M(0/10)      |     Books in use: ZPR ; \
  Perception{Bonus,Total}=2 ; QualityField=4/10 ; QualityListBox.ListCount=1 ; \
  QualityListBox[0]=Keen Eye|2|4|0|Sharp.|ZPR 3||4|2/-|5/-||2|0|0|0|1|0|2|||||||1||| ; \
  Quality{Cost,CostPerLevel,Level,MaxLevel,Name,Note,Reference,XPCost,XPCostPerLevel}Field= ; \
  Speed{Bonus,Total}=2 ; Strength{Bonus,Total}=4 ; q_attributes=0,0,0,0,0,0,0 ; \
  q_bonuspts=,,,,,,,,,,
# A new step drops what could be done again.
undo
choose QualityPopup Iron Will
expect redo 
expect undo Choose Quality
undo
redo
expect QualityNameField Iron Will
undo
undo
do QualityRecordButton_Action
# A removal, and the row chosen before it.
select QualityListBox 0
expect undo Select Quality
sheet
do QualityRemoveButton_Action
expect QualityListBox.ListCount 0
expect undo Remove Quality
undo
expect changed 
# A free point placed: the properties it spends come back too.
set physicalBonus 1
sheet
do StrengthBonus_MouseDown
expect physicalBonus 0
expect undo Place Free Point on Strength
undo
expect changed 
# Typing into a field is one step until it loses the focus; the title follows the name back.
sheet
set NameField Ve
set NameField Vesna
do NameField_LostFocus
expect title Zephalon CC: Vesna
set NameField Vesna K
expect undo Typing in Name
undo
expect NameField Vesna
undo
expect changed 
# The saved mark follows undo and redo; a step that left it on (the in-play flag) leaves it on.
save /tmp/zephalon-undo-script.xml
flag CharacterInPlayBox on
expect savedChar true
set AgeField 30
expect savedChar false
undo
expect savedChar true
redo
expect savedChar false
undo
undo
expect savedChar true
# Undone to before the save, the sheet is not what the file holds; done again, it is.
undo
expect savedChar false
redo
expect savedChar true
# A character loaded into the sheet leaves nothing to take back or do again.
undo
do LoadXMLCharSheet /tmp/zephalon-undo-script.xml
expect undo 
expect redo 
