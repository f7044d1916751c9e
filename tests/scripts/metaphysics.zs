# A player buys metaphysics: only what the qualities allow is offered, the lowest level is bought
# and sold in one press, in play the first level has its own price, a record sums the bonuses
# into the totals, a row comes back to the entry, and a removal renews the sums.
data tests/data/purchase_rules.xml
choose CharacterTypePopup Human
choose ChooseCharPopup Plain
# Keen Eye offers Seer's Eye; Iron Will, in any form, also Ward.
set QualityListBox[0] Keen Eye|1
do MetaTypePopup_MouseDown
choose MetaTypePopup Gifts
expect changed AttributeField=0/20 ; CharacterTypePopup=Human ; ChooseCharPopup.ListIndex=0 ; \
  ChooseChar{Popup,Popup.rows}=Plain ; DrawbackField=0/10 ; \
  InfoText=Attr(0/20) Q(0/10) D(0/10) S(0/25) M(0/10)      |     Books in use: ZPR ; MetaField=0/10 ; \
  MetaPopup.rows=Seer's Eye ; MetaTypePopup.ListIndex=0 ; MetaType{Popup,Popup.rows}=Gifts ; \
  QualityField=0/10 ; QualityListBox.ListCount=1 ; \
  QualityListBox[0]=Keen Eye|1|||||||||||||||||||||||||| ; SkillField=0/25 ; savedChar=false
set QualityListBox[0] Iron Will (Wolf)|1
set MetaListBox[0] Ward|2
set MetaTypePopup
choose MetaTypePopup Gifts
expect changed MetaListBox.ListCount=1 ; MetaListBox[0]=Ward|2|||||||||||||||||||||||| ; \
  MetaPopup.rows=Seer's Eye|Ward|Hidden Gift ; \
  QualityListBox[0]=Iron Will (Wolf)|1||||||||||||||||||||||||||
choose MetaPopup Seer's Eye
expect changed MetaCostField=0 ; MetaCostPerLevelField=1/2 ; MetaLevelField=0 ; \
  MetaMaxLevelField=3/0 ; MetaNameField=Seer's Eye ; MetaNoteField=Sees far. ; MetaPopup=Seer's Eye ; \
  MetaPopup.ListIndex=0 ; MetaPrerequisiteField=Ward,2 ; MetaReferenceField=ZPR 8 ; \
  MetaXPCostField=0 ; MetaXPCostNewField=10 ; MetaXPCostPerLevelField=3/6 ; m_altform=Beasts ; \
  m_attributes=1,0,0,0,0,0,2,0,0 ; m_bonuspts=3,,,,,1, ; m_row=-1
# Lowest level 3, no highest; 1 a level, 2 above level five.
do MetaUpDownArrows_Up
expect changed MetaCostField=3 ; MetaLevelField=3
do MetaUpDownArrows_Up
do MetaUpDownArrows_Up
do MetaUpDownArrows_Up
expect changed MetaCostField=7 ; MetaLevelField=6
do MetaUpDownArrows_Down
do MetaUpDownArrows_Down
do MetaUpDownArrows_Down
expect changed MetaCostField=3 ; MetaLevelField=3
do MetaUpDownArrows_Down
expect changed MetaCostField=0 ; MetaLevelField=0
do MetaUpDownArrows_Up
do MetaRecordButton_Action
expect changed EssenceTotal=3 ; \
  InfoText=Attr(0/20) Q(0/10) D(0/10) S(0/25) M(3/10)      |     Books in use: ZPR ; \
  LifePoints{Bonus,Total}=9 ; MetaCost{,PerLevel}Field= ; MetaField=3/10 ; MetaLevelField= ; \
  MetaListBox.ListCount=2 ; \
  MetaListBox[1]=Seer's Eye|3|3|0|Sees far.|ZPR 8|Ward,2|3/0|1/2|3/6|10|1|0|0|0|0|0|2|0|3|||||1|Beasts ; \
  MetaMaxLevelField= ; MetaPrerequisiteField= ; MetaReferenceField= ; \
  MetaXPCost{,New,PerLevel}Field= ; Meta{Name,Note}Field= ; Strength{Bonus,Total}=3 ; \
  m_all_bonuses=3,0,0,0,0,0,6,0,9,0,0,0,0,3,0 ; m_altform= ; m_attributes=0,0,0,0,0,0,0,0,0 ; \
  m_bonuspts=,,,,,,
select MetaListBox 1
do MetaListBox_DoubleClick
expect changed MetaCostField=3 ; MetaCostPerLevelField=1/2 ; MetaLevelField=3 ; \
  MetaListBox.ListIndex=1 ; MetaMaxLevelField=3/0 ; MetaNameField=Seer's Eye ; \
  MetaNoteField=Sees far. ; MetaPrerequisiteField=Ward,2 ; MetaReferenceField=ZPR 8 ; \
  MetaXPCostField=0 ; MetaXPCostNewField=10 ; MetaXPCostPerLevelField=3/6 ; m_altform=Beasts ; \
  m_attributes=1,0,0,0,0,0,2,0,0 ; m_bonuspts=3,,,,,1, ; m_row=1
# Ward: a highest level below five and no price of its own for the first level.
choose MetaPopup Ward
do MetaUpDownArrows_Up
do MetaUpDownArrows_Up
do MetaUpDownArrows_Up
do MetaUpDownArrows_Up
do MetaUpDownArrows_Up
expect changed MetaCostField=8 ; MetaCostPerLevelField=2/- ; MetaLevelField=4 ; \
  MetaMaxLevelField=0/4 ; MetaNameField=Ward ; MetaNoteField= ; MetaPopup=Ward ; \
  MetaPopup.ListIndex=1 ; MetaPrerequisiteField= ; MetaReferenceField= ; \
  MetaXPCost{New,PerLevel}Field=4/- ; m_altform= ; m_attributes=0,0,0,0,0,0,0,0,0 ; \
  m_bonuspts=,,,,,, ; m_row=-1
# A highest level of exactly five takes the high values.
choose MetaPopup Hidden Gift
expect changed MetaCostField=0 ; MetaCostPerLevelField=1/3 ; MetaLevelField=0 ; \
  MetaMaxLevelField=0/5 ; MetaNameField=Hidden Gift ; MetaPopup=Hidden Gift ; MetaPopup.ListIndex=2 ; \
  MetaXPCost{New,PerLevel}Field=2/4
# In play: the first level costs its new price and the lowest levels; Ward's is set, not added.
flag CharacterInPlayBox on
set SavedExperienceField 30
choose MetaPopup Seer's Eye
do MetaUpDownArrows_Up
expect changed CharacterInPlayBox=true ; MetaCostPerLevelField=1/2 ; MetaLevelField=3 ; \
  MetaMaxLevelField=3/0 ; MetaNameField=Seer's Eye ; MetaNoteField=Sees far. ; MetaPopup=Seer's Eye ; \
  MetaPopup.ListIndex=0 ; MetaPrerequisiteField=Ward,2 ; MetaReferenceField=ZPR 8 ; \
  MetaXPCostField=16 ; MetaXPCostNewField=10 ; MetaXPCostPerLevelField=3/6 ; SavedExperienceField=30 ; \
  m_altform=Beasts ; m_attributes=1,0,0,0,0,0,2,0,0 ; m_bonuspts=3,,,,,1,
do MetaRecordButton_Action
expect changed EssenceTotal=6 ; LifePoints{Bonus,Total}=18 ; MetaCost{,PerLevel}Field= ; \
  MetaLevelField= ; MetaListBox.ListCount=3 ; \
  MetaListBox[2]=Seer's Eye|3|0|16|Sees far.|ZPR 8|Ward,2|3/0|1/2|3/6|10|1|0|0|0|0|0|2|0|3|||||1|Beasts ; \
  MetaMaxLevelField= ; MetaPrerequisiteField= ; MetaReferenceField= ; \
  MetaXPCost{,New,PerLevel}Field= ; Meta{Name,Note}Field= ; SavedExperienceField=14 ; \
  SpentExperienceField=16 ; Strength{Bonus,Total}=6 ; m_all_bonuses=6,0,0,0,0,0,12,0,18,0,0,0,0,6,0 ; \
  m_altform= ; m_attributes=0,0,0,0,0,0,0,0,0 ; m_bonuspts=,,,,,,
choose MetaPopup Ward
set MetaXPCostField 99
do MetaUpDownArrows_Up
expect changed MetaCostField=0 ; MetaCostPerLevelField=2/- ; MetaLevelField=1 ; \
  MetaMaxLevelField=0/4 ; MetaNameField=Ward ; MetaPopup=Ward ; MetaPopup.ListIndex=1 ; \
  MetaXPCost{,New,PerLevel}Field=4/-
do MetaUpDownArrows_Up
expect changed MetaLevelField=2 ; MetaXPCostField=8
# The delete key refunds and renews the sums; the button also the totals.
select MetaListBox 2
do MetaListBox_KeyDown \b
expect changed MetaListBox.ListCount=2 ; MetaListBox[2]= ; SavedExperienceField=30 ; \
  SpentExperienceField=0 ; m_all_bonuses=3,0,0,0,0,0,6,0,9,0,0,0,0,3,0
do MetaRemoveButton_Action
expect changed EssenceTotal=0 ; \
  InfoText=Attr(0/20) Q(0/10) D(0/10) S(0/25) M(0/10)      |     Books in use: ZPR ; \
  LifePoints{Bonus,Total}=0 ; MetaField=0/10 ; MetaListBox.ListCount=1 ; MetaListBox.ListIndex=0 ; \
  MetaListBox[1]= ; Strength{Bonus,Total}=0 ; m_all_bonuses=0,0,0,0,0,0,0,0,0,0,0,0,0,0,0
# From level six in play the high price holds: 22 to level five, and 6 for the sixth.
choose MetaPopup Seer's Eye
do MetaUpDownArrows_Up
do MetaUpDownArrows_Up
do MetaUpDownArrows_Up
do MetaUpDownArrows_Up
expect MetaXPCostField 28
