# The tools as their menu items open them, each the target until `sheet`.
data tests/data/reference_tables.xml
tool reference Odds
expect Title Odds
# The empty heading takes no width: its 70 is lost and 50 moves one column left.
expect ListBox1.headings Roll||Odds
expect ListBox1.ColumnWidths 90,50
expect Width 160
expect Height 220
expect ListBox1.ListCount 9
expect ListBox1[0]  |b|
tool reference Bare
expect Width 20
tool dice
rolls 10 10 7
flag SkillRollCheckBox on
expect DiePopup.enabled false
expect AddCombo 0
set AddCombo 3
do RollButton_Action
expect EditField1 Roll: 10 Roll: 10 Roll: 7 Total: 20\n\n
tool about
expect BooksinUseText Books Currently in Use: Table Test Data
answer error 7
tool updates
expect ProgressWheel1.visible true
# A download that cannot be read: its message, the wheel stopped, no version.
answer /nonexistent/zfversion.txt
tool updates
expect ProgressWheel1.visible false
expect OnlineVersionText.visible false
sheet
expect NameField 
