# A player builds a character on the sample data, saves it, reopens it into a new sheet with
# every item as it was, and closes it after an edit.
data data/rules/sample.xml
set NameField Wren Hollis
do CharacterTypePopup_GotFocus
choose CharacterTypePopup Human
choose ChooseCharPopup Survivor
set StrengthField 3
do StrengthField_LostFocus
do SkillCategoryPopup_MouseDown
choose SkillCategoryPopup Combat
choose SkillPopup Guns
choose SkillSelectPopup Rifle
do SkillUpDownArrows1_Up
do SkillRecordButton_Action
choose SkillCategoryPopup Esoteric
choose SkillPopup Lucid Dream
do SkillUpDownArrows1_Up
do SkillMartialVisualListBox_ContextualMenuAction Mirror Hall
do SkillRecordButton_Action
set NotesField Grew up over a bakery.\nKeeps a ledger of favours.
do EquipmentTypePopup_GotFocus
choose EquipmentTypePopup Weapons
do EquipmentField_ContextualMenuAction Hunter's Knife
save /tmp/zephalon-script-save-and-open.txt
expect title zephalon-script-save-and-open.xml
expect DataModule.recentMenuItems zephalon-script-save-and-open.xml|-|Clear

# Everything the file holds comes back into the new sheet.
open /tmp/zephalon-script-save-and-open.xml
expect changed AttributeField=3/20 ; CharacterTypePopup.ListIndex=0 ; \
  CharacterType{Popup,Popup.rows}=Human ; ChooseCharPopup.ListIndex=0 ; \
  ChooseChar{Popup,Popup.rows}=Survivor ; DrawbackField=0/10 ; EnduranceTotal=14 ; \
  EquipmentField=Hunter's Knife\nDamage: D4 x Strength. Damage Type: Slashing. Range: Close. Weight: 0.3 kg. \nReference: ZSB p. 120. \nNotes: A broad single-edged blade.\n ; \
  EquipmentField.runs=[b]Hunter's Knife|\nDamage: D4 x Strength. Damage Type: Slashing. Range: Close. Weight: 0.3 kg. \nReference: ZSB p. 120. \nNotes: A broad single-edged blade.\n ; \
  EssenceTotal=3 ; \
  InfoText=Attr(3/20) Q(0/10) D(0/10) S(3/25) M(0/0)      |     Books in use: ZSB ZMC WC ; \
  LifePointsTotal=22 ; MetaField=0/0 ; NameField=Wren Hollis ; \
  Notes{Field,Field.runs}=Grew up over a bakery.\nKeeps a ledger of favours. ; QualityField=0/10 ; \
  SkillField=3/25 ; SkillListBox.ListCount=2 ; \
  SkillListBox[0]=Guns(Rifle)|1|1|0|Use and care of firearms of one kind.|ZSB p. 82|Regular|Handgun,Rifle,Shotgun ; \
  SkillListBox[1]=Lucid Dream|1|2|0|Control of one's own dreams through trained visualizations.|ZMC p. 40|Special| ; \
  Strength{Field,Total}=3 ; messages=Wren Hollis Saved. ; title=Zephalon CC: Wren Hollis ; \
  visualizations=Mirror Hall,1,
# Opening does not touch the recent list; an edit asks at closing.
expect DataModule.recentMenuItems zephalon-script-save-and-open.xml|-|Clear
set HairField grey
answer Cancel
do Event_CancelClose
expect savedChar false
answer Save
do Event_CancelClose
expect savedChar true

# After a load the type list holds only the saved type; its first focus loads the list and
# keeps row 0, so the file's first type takes the saved one's place and refills the choices.
open tests/data/sample_character.xml
expect CharacterTypePopup.rows Gifted
do CharacterTypePopup_GotFocus
expect CharacterTypePopup Human
expect ChooseCharPopup.rows Survivor|Hero

# The menu's Save As names the file after the dialog's answer.
answer /tmp/zephalon-script-save-and-open-copy
do _FileSaveAsCharacterFile_Action
expect title zephalon-script-save-and-open-copy.xml
