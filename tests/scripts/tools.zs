# The tools as their menu items open them, each the target until `sheet`.
data data/rules/sample.xml
tool reference Weapon Ranges
expect Title Weapon Ranges
expect Width 360
expect Height 66
expect ListBox1.headings |Weapon|Short|Long|Remarks
expect ListBox1.ColumnWidths 130,60,60,90
expect ListBox1[1] 2|Revolver|15 m|45 m|-1 per extra range band
tool dice
expect Title Die Roller
rolls 10 10 7
flag SkillRollCheckBox on
expect DiePopup.enabled false
set AddCombo 3
do RollButton_Action
expect EditField1 Roll: 10 Roll: 10 Roll: 7 Total: 20\n\n
tool about
expect BooksinUseText Books Currently in Use: Zephalon Sample Book and Zephalon Mystic Companion
tool updates
expect ProgressWheel1.visible true
sheet
expect NameField 
