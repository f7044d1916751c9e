# A player makes a drama-point Hero on the sample data, places the free points, buys the
# attributes, then changes her mind to a Gifted Channeler.
data data/rules/sample.xml
do CharacterTypePopup_GotFocus
choose CharacterTypePopup Human
choose ChooseCharPopup Hero
expect InfoText Bonus points are availble. Click the green number next to an attribute you wish to increase. Mental=2. Physical=3.
do StrengthBonus_MouseDown
do StrengthBonus_MouseDown
do DexterityBonus_MouseDown
# the physical pool is empty now: a fourth click places nothing
do ConstitutionBonus_MouseDown
do IntelligenceBonus_MouseDown
do PerceptionBonus_MouseDown
expect attrBonus 2,1,1,1,1,1,0
set StrengthField 3
set DexterityField 3
set ConstitutionField 2
set IntelligenceField 2
set PerceptionField 3
set WillpowerField 3
do StrengthField_LostFocus
# Every free point was placed, so the run keeps them.
expect StrengthTotal 5
expect LifePointsTotal 44
expect EnduranceTotal 41
expect EssenceTotal 28
expect DPField 20
expect DPField.visible true
expect EssenceTotal.visible false
expect InfoText Attr(16/25) Q(0/20) D(0/10) S(0/30) M(0/0)      |     Books in use: ZSB ZMC WC
expect savedChar false
do LoadConceptBox
expect ConceptBox.rows Drifter|Night Nurse|Occult Librarian|Private Eye|Street Preacher

choose CharacterTypePopup Gifted
expect ChooseCharPopup.rows Channeler|Hedge Sorcerer
choose ChooseCharPopup Channeler
expect QualityListBox.ListCount 1
expect QualityListBox[0] Essence Channeling|1|2||Draws on inner essence to fuel invocations.|ZMC p. 12||10|2/3|4/6|Essence Channeling|||||||||||||||||
expect ExtraStatsField Essence Channeling: 1
expect StrengthTotal 3
expect LifePointsTotal 30
expect DPField.visible false
expect QualityField 2/10
expect AttributeField 16/20
expect MetaField 0/10
expect InfoText Bonus points are availble. Click the green number next to an attribute you wish to increase. Mental=2. Physical=0.
