# First start with no preferences: the user is asked for a data file, it loads, and closing
# writes the preferences that the next start reads back.
answer data/rules/sample.xml
do App.LoadData
expect App.doneloading true
expect DataModule.zephalondata ZSB ZMC WC
expect DataModule.referenceTables Success Levels,Weapon Ranges
do DataModule.SaveDataFilePreferences
do App.GetDataFile
do CharacterTypePopup_GotFocus
expect CharacterTypePopup.ListCount 4
