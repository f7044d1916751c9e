# A player buys qualities and drawbacks: prices above level five, prerequisites, experience in
# play, edits charged the difference, refunds, drawbacks behind, and forms that travel with a row.
data tests/data/purchase_rules.xml
choose CharacterTypePopup Human
choose ChooseCharPopup Plain
expect changed AttributeField=0/20 ; CharacterTypePopup=Human ; ChooseCharPopup.ListIndex=0 ; \
  ChooseChar{Popup,Popup.rows}=Plain ; DrawbackField=0/10 ; \
  InfoText=Attr(0/20) Q(0/10) D(0/10) S(0/25) M(0/10)      |     Books in use: ZPR ; MetaField=0/10 ; \
  QualityField=0/10 ; SkillField=0/25 ; savedChar=false
do QualityTypePopup_MouseDown
choose QualityTypePopup Qualities
do QualityPopup_MouseDown
choose QualityPopup Keen Eye
expect changed QualityCostPerLevelField=2/- ; QualityMaxLevelField=4 ; QualityNoteField=Sharp. ; \
  QualityPopup.rows=Keen Eye|Iron Will|Even Keel|Shapeshifter|Nameless ; QualityReferenceField=ZPR 3 ; \
  QualityTypePopup=Qualities ; QualityTypePopup.rows=Qualities|Drawbacks ; \
  QualityXPCostPerLevelField=5/- ; \
  Quality{CostField,LevelField,Popup.ListIndex,TypePopup.ListIndex,XPCostField}=0 ; \
  Quality{NameField,Popup}=Keen Eye ; q_attributes=2,0,0,0,1,0,0 ; q_bonuspts=2,,,,,,,1,,, ; \
  q_row=-1
do QualityUpDownArrows_Up
do QualityUpDownArrows_Up
expect changed QualityCostField=4 ; QualityLevelField=2
do QualityRecordButton_Action
expect changed EssenceTotal=6 ; \
  InfoText=Attr(0/20) Q(4/10) D(0/10) S(0/25) M(0/10)      |     Books in use: ZPR ; \
  Perception{Bonus,Total}=2 ; QualityField=4/10 ; QualityListBox.ListCount=1 ; \
  QualityListBox[0]=Keen Eye|2|4|0|Sharp.|ZPR 3||4|2/-|5/-||2|0|0|0|1|0|2|||||||1||| ; \
  Quality{Cost,CostPerLevel,Level,MaxLevel,Name,Note,Reference,XPCost,XPCostPerLevel}Field= ; \
  Speed{Bonus,Total}=2 ; Strength{Bonus,Total}=4 ; q_attributes=0,0,0,0,0,0,0 ; \
  q_bonuspts=,,,,,,,,,,
# A highest level of exactly five takes the high values, even empty ones; its prerequisites
# are not met.
choose QualityPopup Even Keel
expect changed QualityCostPerLevelField=2/ ; QualityMaxLevelField=5 ; QualityPopup.ListIndex=2 ; \
  QualityPrerequisiteField=Keen Eye,2&&Iron Will,1 ; QualityXPCostPerLevelField=3/ ; \
  Quality{Cost,Level,XPCost}Field=0 ; Quality{NameField,Popup}=Even Keel
do QualityUpDownArrows_Up
do QualityRecordButton_Action
expect changed QualityCostField=2 ; QualityLevelField=1 ; \
  messages=Prerequisites are not met. This cannot be purchased.
# Rows are counted, not requirements: a form's row does not match, but two rows of one name
# (in any case) stand in for both requirements.
set QualityListBox[1] KEEN EYE (Wolf)|3
do QualityRecordButton_Action
expect changed QualityListBox.ListCount=2 ; \
  QualityListBox[1]=KEEN EYE (Wolf)|3|||||||||||||||||||||||||| ; \
  messages=Prerequisites are not met. This cannot be purchased.
set QualityListBox[2] keen eye|3
do QualityRecordButton_Action
expect changed InfoText=Attr(0/20) Q(6/10) D(0/10) S(0/25) M(0/10)      |     Books in use: ZPR ; \
  QualityField=6/10 ; QualityListBox.ListCount=4 ; \
  QualityListBox[2]=keen eye|3|||||||||||||||||||||||||| ; \
  QualityListBox[3]=Even Keel|1|2|0|||Keen Eye,2&&Iron Will,1|5|2/|3/||0|0|0|0|0|0||||||||||| ; \
  Quality{Cost,CostPerLevel,Level,MaxLevel,Name,Prerequisite,XPCost,XPCostPerLevel}Field=
select QualityListBox 1
do QualityRemoveButton_Action
expect changed QualityListBox.ListCount=3 ; QualityListBox.ListIndex=1 ; \
  QualityListBox[1]=keen eye|3|||||||||||||||||||||||||| ; \
  QualityListBox[2]=Even Keel|1|2|0|||Keen Eye,2&&Iron Will,1|5|2/|3/||0|0|0|0|0|0||||||||||| ; \
  QualityListBox[3]= ; SavedExperienceField=0 ; SpentExperienceField=0
# Iron Will: one a level, three above level five; going down gives back what going up took.
choose QualityPopup Iron Will
do QualityUpDownArrows_Down
do QualityUpDownArrows_Up
do QualityUpDownArrows_Up
do QualityUpDownArrows_Up
do QualityUpDownArrows_Up
do QualityUpDownArrows_Up
expect changed QualityCostPerLevelField=1/3 ; QualityMaxLevelField=8 ; QualityPopup.ListIndex=1 ; \
  QualityXPCostField=0 ; QualityXPCostPerLevelField=4/7 ; Quality{Cost,Level}Field=5 ; \
  Quality{NameField,Popup}=Iron Will
do QualityUpDownArrows_Up
expect changed QualityCostField=8 ; QualityLevelField=6
do QualityUpDownArrows_Down
expect changed Quality{Cost,Level}Field=5
do QualityRecordButton_Action
expect changed InfoText=Attr(0/20) Q(11/10) D(0/10) S(0/25) M(0/10)      |     Books in use: ZPR ; \
  QualityField=11/10 ; QualityListBox.ListCount=4 ; \
  QualityListBox[3]=Iron Will|5|5|0||||8|1/3|4/7||0|0|0|0|0|0||||||||||| ; \
  Quality{Cost,CostPerLevel,Level,MaxLevel,Name,XPCost,XPCostPerLevel}Field=
# In play: a purchase that experience pays for goes ahead with only a warning; one it does not
# pay for is refused without a word.
flag CharacterInPlayBox on
set SavedExperienceField 7
choose QualityPopup Even Keel
do QualityUpDownArrows_Up
do QualityUpDownArrows_Up
do QualityRecordButton_Action
expect changed CharacterInPlayBox=true ; QualityListBox.ListCount=5 ; \
  QualityListBox[4]=Even Keel|2|0|6|||Keen Eye,2&&Iron Will,1|5|2/|3/||0|0|0|0|0|0||||||||||| ; \
  QualityPopup=Even Keel ; QualityPopup.ListIndex=2 ; SavedExperienceField=1 ; \
  SpentExperienceField=6 ; messages=Prerequisites are not met. This cannot be purchased.
choose QualityPopup Keen Eye
do QualityUpDownArrows_Up
do QualityRecordButton_Action
expect changed QualityCostPerLevelField=2/- ; QualityLevelField=1 ; QualityMaxLevelField=4 ; \
  QualityNoteField=Sharp. ; QualityReferenceField=ZPR 3 ; QualityXPCostField=5 ; \
  QualityXPCostPerLevelField=5/- ; Quality{CostField,Popup.ListIndex}=0 ; \
  Quality{NameField,Popup}=Keen Eye ; q_attributes=2,0,0,0,1,0,0 ; q_bonuspts=2,,,,,,,1,,,
# An edited row is charged the difference, and given it back when lowered.
set SavedExperienceField 20
select QualityListBox 4
do QualityListBox_DoubleClick
expect changed QualityCostPerLevelField=2/ ; QualityLevelField=2 ; QualityListBox.ListIndex=4 ; \
  QualityMaxLevelField=5 ; QualityNameField=Even Keel ; \
  QualityPrerequisiteField=Keen Eye,2&&Iron Will,1 ; QualityXPCostField=6 ; \
  QualityXPCostPerLevelField=3/ ; Quality{Note,Reference}Field= ; SavedExperienceField=20 ; \
  q_attributes=0,0,0,0,0,0,0 ; q_bonuspts=,,,,,,,,,, ; q_row=4
do QualityUpDownArrows_Up
do QualityRecordButton_Action
expect changed QualityListBox[4]=Even Keel|3|0|9|||Keen Eye,2&&Iron Will,1|5|2/|3/||0|0|0|0|0|0||||||||||| ; \
  Quality{Cost,CostPerLevel,Level,MaxLevel,Name,Prerequisite,XPCost,XPCostPerLevel}Field= ; \
  SavedExperienceField=17 ; SpentExperienceField=9 ; \
  messages=Prerequisites are not met. This cannot be purchased. ; q_row=-1
select QualityListBox 4
do QualityListBox_DoubleClick
do QualityUpDownArrows_Down
do QualityUpDownArrows_Down
do QualityRecordButton_Action
expect changed QualityListBox[4]=Even Keel|1|0|3|||Keen Eye,2&&Iron Will,1|5|2/|3/||0|0|0|0|0|0||||||||||| ; \
  SavedExperienceField=23 ; SpentExperienceField=3 ; \
  messages=Prerequisites are not met. This cannot be purchased.
# The delete key refunds without recomputing; the button recomputes.
select QualityListBox 3
do QualityListBox_KeyDown \b
expect changed QualityListBox.ListCount=4 ; QualityListBox.ListIndex=3 ; \
  QualityListBox[3]=Even Keel|1|0|3|||Keen Eye,2&&Iron Will,1|5|2/|3/||0|0|0|0|0|0||||||||||| ; \
  QualityListBox[4]=
do QualityListBox_KeyDown a
select QualityListBox 0
do QualityRemoveButton_Action
expect changed EssenceTotal=0 ; \
  InfoText=Attr(0/20) Q(2/10) D(0/10) S(0/25) M(0/10)      |     Books in use: ZPR ; \
  Perception{Bonus,Total}=0 ; QualityField=2/10 ; QualityListBox.ListCount=3 ; \
  QualityListBox.ListIndex=0 ; QualityListBox[0]=keen eye|3|||||||||||||||||||||||||| ; \
  QualityListBox[1]=Even Keel|1|2|0|||Keen Eye,2&&Iron Will,1|5|2/|3/||0|0|0|0|0|0||||||||||| ; \
  QualityListBox[2]=Even Keel|1|0|3|||Keen Eye,2&&Iron Will,1|5|2/|3/||0|0|0|0|0|0||||||||||| ; \
  QualityListBox[3]= ; Speed{Bonus,Total}=0 ; Strength{Bonus,Total}=0
# Drawbacks go behind the qualities while the box is set; ordering by hand unsets it.
flag CharacterInPlayBox off
choose QualityTypePopup Drawbacks
choose QualityPopup Clumsy
do QualityUpDownArrows_Up
do QualityRecordButton_Action
expect changed CharacterInPlayBox=false ; DrawbackField=-2/10 ; \
  InfoText=Attr(0/20) Q(2/10) D(-2/10) S(0/25) M(0/10)      |     Books in use: ZPR ; \
  QualityListBox.ListCount=4 ; QualityListBox[3]=Clumsy|1|-2|0||||3|-2/-|0/-||0|0|0|0|0|0||||||||||| ; \
  QualityTypePopup=Drawbacks ; QualityTypePopup.ListIndex=1 ; Quality{Popup,Popup.rows}=Clumsy
choose QualityTypePopup Qualities
choose QualityPopup Keen Eye
do QualityUpDownArrows_Up
do QualityRecordButton_Action
expect changed EssenceTotal=3 ; \
  InfoText=Attr(0/20) Q(4/10) D(-2/10) S(0/25) M(0/10)      |     Books in use: ZPR ; \
  Perception{Bonus,Total}=1 ; QualityField=4/10 ; QualityListBox.ListCount=5 ; \
  QualityListBox[3]=Keen Eye|1|2|0|Sharp.|ZPR 3||4|2/-|5/-||2|0|0|0|1|0|2|||||||1||| ; \
  QualityListBox[4]=Clumsy|1|-2|0||||3|-2/-|0/-||0|0|0|0|0|0||||||||||| ; QualityPopup=Keen Eye ; \
  QualityPopup.rows=Keen Eye|Iron Will|Even Keel|Shapeshifter|Nameless ; QualityTypePopup=Qualities ; \
  QualityTypePopup.ListIndex=0 ; Speed{Bonus,Total}=1 ; Strength{Bonus,Total}=2
do QualityListBox_HeaderPressed
choose QualityTypePopup Drawbacks
choose QualityPopup Clumsy
do QualityRecordButton_Action
expect changed QualitiesSeparateQDBox=false ; QualityListBox.ListCount=6 ; \
  QualityListBox[5]=Clumsy|0|0|0||||3|-2/-|0/-||0|0|0|0|0|0||||||||||| ; QualityTypePopup=Drawbacks ; \
  QualityTypePopup.ListIndex=1 ; Quality{Popup,Popup.rows}=Clumsy
flag QualitiesSeparateQDBox on
expect changed QualitiesSeparateQDBox=true ; \
  QualityListBox[4]=Clumsy|0|0|0||||3|-2/-|0/-||0|0|0|0|0|0||||||||||| ; \
  QualityListBox[5]=Clumsy|1|-2|0||||3|-2/-|0/-||0|0|0|0|0|0|||||||||||
do QualityListBox_DragReorderRows
expect changed QualitiesSeparateQDBox=false
# The forms offered and the one chosen travel with the row and come back with it.
choose QualityTypePopup Qualities
choose QualityPopup Shapeshifter
expect changed QualityAlternateFormCombo.rows=Wolf|Hawk ; QualityMaxLevelField=1 ; \
  QualityPopup.ListIndex=3 ; QualityPopup.rows=Keen Eye|Iron Will|Even Keel|Shapeshifter|Nameless ; \
  QualityTypePopup=Qualities ; Quality{,XP}CostPerLevelField=5/- ; \
  Quality{AltFormText,AlternateFormCombo}.visible=true ; \
  Quality{CostField,LevelField,TypePopup.ListIndex,XPCostField}=0 ; \
  Quality{NameField,Popup}=Shapeshifter
choose QualityAlternateFormCombo Hawk
do QualityUpDownArrows_Up
do QualityRecordButton_Action
expect changed InfoText=Attr(0/20) Q(8/10) D(-2/10) S(0/25) M(0/10)      |     Books in use: ZPR ; \
  QualityField=8/10 ; QualityListBox.ListCount=7 ; \
  QualityListBox[6]=Shapeshifter(Hawk)|1|4|||||1|4/4|4/4||0|0|0|0|0|0|||||||||||&&Wolf,Hawk&&Hawk ; \
  Quality{AltFormText,AlternateFormCombo}.visible=false ; \
  Quality{AlternateFormCombo.rows,CostField,CostPerLevelField,LevelField,MaxLevelField,NameField,XPCostField,XPCostPerLevelField}=
select QualityListBox 3
do QualityListBox_DoubleClick
expect changed QualityCostField=2 ; QualityCostPerLevelField=2/- ; QualityLevelField=1 ; \
  QualityListBox.ListIndex=3 ; QualityMaxLevelField=4 ; QualityNameField=Keen Eye ; \
  QualityNoteField=Sharp. ; QualityReferenceField=ZPR 3 ; QualityXPCostField=0 ; \
  QualityXPCostPerLevelField=5/- ; q_attributes=2,0,0,0,1,0,0 ; q_bonuspts=2,,,,,,,1,,, ; q_row=3
select QualityListBox 6
do QualityListBox_DoubleClick
expect changed QualityAlternateFormCombo=Hawk ; QualityAlternateFormCombo.ListIndex=1 ; \
  QualityAlternateFormCombo.rows=Wolf|Hawk ; Quality{AltFormText,AlternateFormCombo}.visible=true ; \
  QualityCostPerLevelField=4/4 ; QualityLevelField=0 ; QualityListBox.ListIndex=6 ; QualityMaxLevelField=1 ; \
  QualityNameField=Shapeshifter(Hawk) ; Quality{Cost,Note,Reference,XPCost}Field= ; \
  QualityXPCostPerLevelField=4/4 ; q_attributes=0,0,0,0,0,0,0 ; q_bonuspts=,,,,,,,,,, ; q_row=6
# Another form chosen renames the edited row.
choose QualityAlternateFormCombo Wolf
do QualityUpDownArrows_Up
do QualityRecordButton_Action
expect changed InfoText=Attr(0/20) Q(10/10) D(-2/10) S(0/25) M(0/10)      |     Books in use: ZPR ; \
  QualityField=10/10 ; QualityListBox[6]=Shapeshifter(Wolf)|1|6|||||1|6/6|6/6||0|0|0|0|0|0|||||||||||&&Wolf,Hawk&&Wolf ; \
  Quality{AltFormText,AlternateFormCombo}.visible=false ; QualityAlternateFormCombo.ListIndex=-1 ; \
  Quality{AlternateFormCombo,AlternateFormCombo.rows,CostPerLevelField,LevelField,MaxLevelField,NameField}= ; \
  QualityXPCostPerLevelField= ; q_row=-1
