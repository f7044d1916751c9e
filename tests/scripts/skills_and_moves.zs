# A player buys skills on the sample data: a specialty, a Martial Arts style with its basic
# moves and a maneuver from the free pool, a Lucid Dream with visualizations, then edits a
# skill in play.
data data/rules/sample.xml
do CharacterTypePopup_GotFocus
choose CharacterTypePopup Human
choose ChooseCharPopup Survivor
do SkillCategoryPopup_MouseDown
choose SkillCategoryPopup Combat
choose SkillPopup Guns
choose SkillSelectPopup Rifle
do SkillUpDownArrows1_Up
do SkillUpDownArrows1_Up
do SkillSpecialtyButton_Action
do SkillRecordButton_Action
expect SkillListBox[0] Guns(Rifle) (Specialty)|4|3|0|Use and care of firearms of one kind.|ZSB p. 82|Regular|Handgun,Rifle,Shotgun
choose SkillPopup Martial Arts
do SkillUpDownArrows1_Up
do SkillUpDownArrows1_Up
choose SkillSelectPopup Iron Crane
do SkillMartialVisualListBox_ConstructContextualMenu
do SkillMartialVisualListBox_ContextualMenuAction Sweep
select SkillMartialVisualListBox 3
do SkillMartialVisualListBox_ContextualMenuAction Increase +
expect SkillMartialVisualListBox[3] Sweep|2|
do SkillRecordButton_Action
# stored last row first, each as name,level,experience
expect martialmaneuvers Sweep,2,,*Block,2,,*Kick,2,,*Punch,2,
expect SkillListBox[1] Martial Arts(Iron Crane)|2|4|0|Trained unarmed fighting in one style.|ZSB p. 81|Special|Iron Crane,River Fist,Stone Palm
choose SkillCategoryPopup Esoteric
choose SkillPopup Lucid Dream
do SkillUpDownArrows1_Up
do SkillMartialVisualListBox_ContextualMenuAction Mirror Hall
do SkillRecordButton_Action
expect visualizations Mirror Hall,1,
expect SkillField 9/25
flag CharacterInPlayBox on
set SavedExperienceField 20
select SkillListBox 1
do SkillListBox_DoubleClick
do SkillUpDownArrows1_Up
expect SkillXPCostField 4
do SkillMartialVisualListBox_ContextualMenuAction Throw
do SkillRecordButton_Action
expect SkillListBox[1] Martial Arts(Iron Crane)|3|4|4|Trained unarmed fighting in one style.|ZSB p. 81|Special|Iron Crane,River Fist,Stone Palm
expect SavedExperienceField 16
expect martialmaneuvers Throw,1,,Sweep,2,,*Block,2,,*Kick,2,,*Punch,2,
