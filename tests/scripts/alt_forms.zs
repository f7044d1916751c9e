# A form chosen for an accursed quality, and the form page of the notes area, on the sample data.
data data/rules/sample.xml
choose CharacterTypePopup Spirit Touched
choose ChooseCharPopup Moonbound
# The required quality offers forms but none is chosen: the page comes up empty.
set AltFormField old text
do AltFormButton_Action
expect currentNotesButton AltForm
expect AltFormField.visible true
expect NotesField.visible false
expect AltFormField 
set QualityNameField Accursed Bloodline
set QualityAlternateFormCombo Wolf Shape
expect QualityNameField Accursed Bloodline(Wolf Shape)
expect QualityCostPerLevelField 6/6
expect QualityMaxLevelField 1
do NotesButton_Action
expect NotesButton true
expect AltFormButton false
expect AltFormField.visible false
