# Required qualities with their bonuses, the speed divisor, the vital essence rule, and the
# optional skill system with an age rule, on the sample data.
data data/rules/sample.xml
set StrengthField 2
set DexterityField 2
set ConstitutionField 2
set IntelligenceField 2
set PerceptionField 2
set WillpowerField 2
choose CharacterTypePopup Spirit Touched
choose ChooseCharPopup Moonbound
# "Phantom Gift" is in no quality type: skipped without a message.
expect QualityListBox.ListCount 2
expect QualityListBox[0] Accursed Bloodline|1|4||An inherited curse that forces a beast shape on its bearer.|ZMC p. 30||1|4/0|6/0||1|0|1|0|0|0|||||||||||Beast Shapes&&Wolf Shape,Bear Shape&&
expect StrengthTotal 5
expect LifePointsTotal 65
expect SpeedTotal 16
expect QualityField 5/10
# A quality bonus fails the free-point comparison at every run, so nothing grows.
do TabPanel1_Change
expect StrengthTotal 5

choose ChooseCharPopup Wandering Soul
expect QualityListBox.ListCount 0
do AddQualityFromCharType Spirit Touched|Moonbound
expect QualityListBox.ListCount 2
do AddQualityFromCharType Spirit Touched|Wandering Soul
expect SpeedTotal 4
expect LPText Vital Ess.:
expect EssenceTotal 65
expect LifePointsTotal 40
expect MetaField 0/15
expect SkillField 0/20
flag OptionalSkillPointBox on
expect SkillField 0/18

choose CharacterTypePopup Gifted
choose ChooseCharPopup Hedge Sorcerer
set AgeField 40
do TabPanel1_Change
expect LPText Life Points:
expect SkillField 0/26
expect AttributeField 12/18
flag OptionalSkillPointBox off
expect SkillField 0/25
expect InfoText Bonus points are availble. Click the green number next to an attribute you wish to increase. Mental=1. Physical=1.
