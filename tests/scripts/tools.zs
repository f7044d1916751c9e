# The tools as their menu items open them, each the target until `sheet`.
data tests/data/reference_tables.xml
tool reference Odds
# The empty heading takes no width: its 70 is lost and 50 moves one column left.
expect changed ListBox1.ListCount=9 ; ListBox1.ListIndex=-1 ; ListBox1.headings=Roll||Odds ; \
  ListBox1[0]= |b| ; ListBox1[1]=3|x|y ; \
  ListBox1[2]=4|x|y ; ListBox1[3]=5|x|y ; ListBox1[4]=6|x|y ; ListBox1[5]=7|x|y ; ListBox1[6]=8|x|y ; \
  ListBox1[7]=9|x|y ; ListBox1[8]=10|x|y
expect Title Odds
expect ListBox1.ColumnWidths 90,50
expect Width 160
expect Height 220
tool reference Bare
expect changed ListBox1.ListCount=1 ; ListBox1.ListIndex=-1 ; ListBox1{.headings,[0]}=
expect Width 20
tool dice
expect changed AddCombo.rows=0|1|2|3|4|5|6|7|8|9|10|11|12|13|14|15|16|17|18|19|20 ; \
  Add{Combo,Combo.ListIndex}=0 ; \
  ArmorAddCombo.rows=0|1|2|3|4|5|6|7|8|9|10|11|12|13|14|15|16|17|18|19|20 ; \
  ArmorAdd{Combo,Combo.ListIndex}=0 ; Armor{AddCombo.visible,RollCheckBox}=false ; DiePopup=D4 ; \
  DiePopup.ListIndex=0 ; DiePopup.rows=D4|D6|D8|D10|D12|D20 ; Edit{Field1,Field1.runs}= ; \
  LeftBracketText=[ ; LeftBracketText.visible=false ; LeftParenText=( ; MultText=x ; \
  MultiplierCombo=1 ; MultiplierCombo.ListIndex=0 ; \
  MultiplierCombo.rows=1|2|3|4|5|6|7|8|9|10|11|12|13|14|15|16|17|18|19|20 ; PlusText=+ ; \
  RightBracketText=] ; RightBracketText.visible=false ; RightParenText=) ; SecondAddText=+ ; \
  SecondAddText.visible=false ; SkillRollCheckBox=false
rolls 10 10 7
flag SkillRollCheckBox on
set AddCombo 3
do RollButton_Action
expect changed Add{Combo,Combo.ListIndex}=3 ; DiePopup=D10 ; DiePopup.ListIndex=3 ; \
  DiePopup.enabled=false ; Edit{Field1,Field1.runs}=Roll: 10 Roll: 10 Roll: 7 Total: 20\n\n ; \
  MultText.visible=false ; MultiplierCombo.visible=false ; SkillRollCheckBox=true
tool about
expect changed BooksinUseText=Books Currently in Use: Table Test Data ; \
  StaticText1=Zephalon, a character generator for the Unisystem rules. Written by the Zephalon developers, 2024. ; \
  VersionText=Zephalon Version: 1.1.5
answer error 7
tool updates
expect changed CurrentVersionText=Zephalon Version: 1.1.5 ; GrabNewVersionText=Get it! ; \
  GrabNewVersionText.visible=false ; LatestAvailText=The latest available online is ; \
  OnlineVersionText= ; OnlineVersionText.visible=false ; ProgressWheel1=
# A download that cannot be read: its message, the wheel stopped, no version.
answer /nonexistent/zfversion.txt
tool updates
expect changed CurrentVersionText=Zephalon Version: 1.1.5 ; GrabNewVersionText=Get it! ; \
  GrabNewVersionText.visible=false ; LatestAvailText=The latest available online is ; \
  OnlineVersionText= ; OnlineVersionText.visible=false ; ProgressWheel1= ; \
  ProgressWheel1.visible=false
tool datafiles
expect changed ListBox1.ListCount=0 ; ListBox1.ListIndex=-1 ; ListBox1.headings=Name|File|Path ; PathText= ; \
  PathText.visible=false ; CheckReport= ; CheckReport.visible=false
sheet
expect NameField 
# The user guide, found where it was installed, opens in the browser without a word.
sheet
do App._HelpHelp_Action
expect changed 
