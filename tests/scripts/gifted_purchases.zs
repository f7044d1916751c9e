# A player buys her qualities and powers on the sample data: a prerequisite refused,
# then met; a drawback kept behind the qualities; a beast form; a power the qualities unlock;
# a row edited in play; and the alternate-form page.
data data/rules/sample.xml
do CharacterTypePopup_GotFocus
choose CharacterTypePopup Human
choose ChooseCharPopup Hero
do QualityTypePopup_MouseDown
choose QualityTypePopup Supernatural
choose QualityPopup Adept
do QualityUpDownArrows_Up
do QualityRecordButton_Action
choose QualityPopup Essence Channeling
do QualityUpDownArrows_Up
do QualityUpDownArrows_Up
do QualityRecordButton_Action
choose QualityPopup Adept
do QualityUpDownArrows_Up
do QualityRecordButton_Action
expect QualityListBox[1] Adept|1|5|0|A trained practitioner whose study feeds the Sadicas pool.|ZMC p. 14|Essence Channeling,1|1|5/-|8/-|Adept|0|0|0|0|0|0|||||||||||
choose QualityTypePopup Physical
choose QualityPopup Clumsy
do QualityUpDownArrows_Up
do QualityRecordButton_Action
choose QualityTypePopup Supernatural
choose QualityPopup Shifting Skin
choose QualityAlternateFormCombo Wolf Shape
do QualityUpDownArrows_Up
do QualityRecordButton_Action
expect QualityListBox[2] Shifting Skin(Wolf Shape)|1|10||Takes on a beast shape at will.|ZMC p. 31||1|10/10|10/10||0|0|0|0|0|0|||||||||||&&Wolf Shape,Bear Shape&&Wolf Shape
# the drawback went behind the qualities
expect QualityListBox[3] Clumsy|1|-2|0|Trips, fumbles and drops things at the worst moment.|ZSB p. 45||3|-2/-|-2/-||0|-1|0|0|0|0|||||||||||
do MetaTypePopup_MouseDown
choose MetaTypePopup Spirit Gifts
expect MetaPopup.ListCount 2
choose MetaPopup Spirit Shape
do MetaUpDownArrows_Up
do MetaRecordButton_Action
expect MetaListBox[0] Spirit Shape|1|5|0|The body thins into one of the spirit shapes.|ZMC p. 60||0/1|5/-|10/-|10/-|0|0|0|0|0|0|0|0|||||||Spirit Shapes
expect MetaField 5/0
flag CharacterInPlayBox on
set SavedExperienceField 10
select QualityListBox 0
do QualityListBox_DoubleClick
do QualityUpDownArrows_Up
do QualityRecordButton_Action
expect QualityListBox[0] Essence Channeling|3|4|4|Draws on inner essence to fuel invocations.|ZMC p. 12||10|2/3|4/6|Essence Channeling|0|0|0|0|0|0|||||||||||
expect SavedExperienceField 6
expect SpentExperienceField 4
do AltFormButton_Action
