# A player builds a Human survivor on the sample data: type, choice, attributes, totals.
data data/rules/sample.xml
expect DataModule.zephalondata ZSB ZMC WC
do CharacterTypePopup_GotFocus
expect CharacterTypePopup.rows Human|Gifted|Mundane|Spirit Touched
choose CharacterTypePopup Human
expect ChooseCharPopup.rows Survivor|Hero
expect savedChar false
choose ChooseCharPopup Survivor
set StrengthField 3
set DexterityField 4
set ConstitutionField 3
set IntelligenceField 2
set PerceptionField 3
set WillpowerField 6
expect StrengthTotal 0
do FigureSecondaryAttributes
expect StrengthTotal 3
expect WillpowerTotal 6
expect AttributeField 23/20
expect LifePointsTotal 34
expect EnduranceTotal 41
expect SpeedTotal 14
expect EssenceTotal 21
expect SkillField 0/25
expect QualityField 0/10
expect DrawbackField 0/10
expect MetaField 0/0
expect InfoText Attr(23/20) Q(0/10) D(0/10) S(0/25) M(0/0)      |     Books in use: ZSB ZMC WC
expect DPField.visible false
do LoadConceptBox
expect ConceptBox.rows Drifter|Night Nurse|Occult Librarian|Private Eye|Street Preacher
expect App.doneloading true
do DataModule.SaveDataFilePreferences
