# A player buys a specialty, a Martial Arts style with a move from the free pool and a Lucid
# Dream, then edits a skill in play, buying a move with experience and selling it back.
data data/rules/sample.xml
do CharacterTypePopup_GotFocus
choose CharacterTypePopup Human
choose ChooseCharPopup Survivor
do SkillCategoryPopup_MouseDown
choose SkillCategoryPopup Combat
choose SkillPopup Guns
expect changed AttributeField=0/20 ; CharacterTypePopup=Human ; CharacterTypePopup.ListIndex=0 ; \
  CharacterTypePopup.rows=Human|Gifted|Mundane|Spirit Touched ; ChooseCharPopup=Survivor ; \
  ChooseCharPopup.ListIndex=0 ; ChooseCharPopup.rows=Survivor|Hero ; DrawbackField=0/10 ; \
  EnduranceTotal=5 ; \
  InfoText=Attr(0/20) Q(0/10) D(0/10) S(0/25) M(0/0)      |     Books in use: ZSB ZMC WC ; \
  LifePointsTotal=10 ; MetaField=0/0 ; QualityField=0/10 ; SkillCategoryPopup=Combat ; \
  SkillCategoryPopup.rows=Combat|Knowledge|Social|Esoteric ; SkillField=0/25 ; \
  SkillNotesField=Use and care of firearms of one kind. ; SkillPopup.ListIndex=2 ; \
  SkillPopup.rows=Brawling|Martial Arts|Guns|Ricochet Shot ; SkillReferenceField=ZSB p. 82 ; \
  SkillSelectPopup.rows=Handgun|Rifle|Shotgun ; SkillTypeCombo=Regular ; \
  Skill{CategoryPopup.ListIndex,CostField,LevelField,TypeCombo.ListIndex,XPCostField}=0 ; \
  Skill{NameField,Popup}=Guns ; s_row=-1 ; savedChar=false
choose SkillSelectPopup Rifle
do SkillUpDownArrows1_Up
do SkillUpDownArrows1_Up
do SkillSpecialtyButton_Action
expect changed SkillCostField=3 ; SkillLevelField=4 ; SkillNameField=Guns(Rifle) (Specialty) ; \
  SkillSelectPopup=Rifle ; SkillSelectPopup.ListIndex=1
do SkillRecordButton_Action
expect changed InfoText=Attr(0/20) Q(0/10) D(0/10) S(3/25) M(0/0)      |     Books in use: ZSB ZMC WC ; \
  SkillField=3/25 ; SkillListBox.ListCount=1 ; \
  SkillListBox[0]=Guns(Rifle) (Specialty)|4|3|0|Use and care of firearms of one kind.|ZSB p. 82|Regular|Handgun,Rifle,Shotgun ; \
  SkillTypeCombo.ListIndex=-1 ; \
  Skill{CostField,LevelField,NameField,NotesField,ReferenceField,TypeCombo,XPCostField}=
choose SkillPopup Martial Arts
do SkillUpDownArrows1_Up
do SkillUpDownArrows1_Up
choose SkillSelectPopup Iron Crane
expect changed SkillCostField=4 ; SkillLevelField=2 ; SkillMartialVisualListBox.ListCount=3 ; \
  SkillMartialVisualListBox[0]=*Punch|2| ; SkillMartialVisualListBox[1]=*Kick|2| ; \
  SkillMartialVisualListBox[2]=*Block|2| ; \
  SkillMartialVisualListBox{.visible,[0].bold,[1].bold,[2].bold}=true ; \
  SkillNameField=Martial Arts(Iron Crane) ; SkillNotesField=Trained unarmed fighting in one style. ; \
  SkillPopup=Martial Arts ; SkillReferenceField=ZSB p. 81 ; SkillSelectPopup=Iron Crane ; \
  SkillSelectPopup.rows=Iron Crane|River Fist|Stone Palm ; SkillTypeCombo=Special ; \
  Skill{Popup,TypeCombo}.ListIndex=1 ; Skill{SelectPopup.ListIndex,XPCostField}=0
# The style chosen again replaces its basic moves rather than adding them twice.
do SkillSelectPopup_Change
expect SkillMartialVisualListBox.ListCount 3
do SkillMartialVisualListBox_ConstructContextualMenu
do SkillMartialVisualListBox_ContextualMenuAction Sweep
select SkillMartialVisualListBox 3
do SkillMartialVisualListBox_ContextualMenuAction Increase +
expect changed SkillMartialVisualListBox.ListCount=4 ; SkillMartialVisualListBox.ListIndex=3 ; \
  SkillMartialVisualListBox[3]=Sweep|2|
do SkillRecordButton_Action
expect changed InfoText=Attr(0/20) Q(0/10) D(0/10) S(7/25) M(0/0)      |     Books in use: ZSB ZMC WC ; \
  SkillField=7/25 ; SkillListBox.ListCount=2 ; \
  SkillListBox[1]=Martial Arts(Iron Crane)|2|4|0|Trained unarmed fighting in one style.|ZSB p. 81|Special|Iron Crane,River Fist,Stone Palm ; \
  SkillMartialVisualListBox.ListCount=0 ; SkillMartialVisualListBox.visible=false ; \
  Skill{CostField,LevelField,MartialVisualListBox[0],MartialVisualListBox[0].bold,MartialVisualListBox[1],MartialVisualListBox[1].bold,MartialVisualListBox[2],MartialVisualListBox[2].bold,MartialVisualListBox[3],NameField,NotesField,ReferenceField,TypeCombo,XPCostField}= ; \
  Skill{MartialVisualListBox,TypeCombo}.ListIndex=-1 ; \
  martialmaneuvers=Sweep,2,,*Block,2,,*Kick,2,,*Punch,2,
choose SkillCategoryPopup Esoteric
choose SkillPopup Lucid Dream
do SkillUpDownArrows1_Up
do SkillMartialVisualListBox_ContextualMenuAction Mirror Hall
do SkillRecordButton_Action
expect changed InfoText=Attr(0/20) Q(0/10) D(0/10) S(9/25) M(0/0)      |     Books in use: ZSB ZMC WC ; \
  SkillCategoryPopup=Esoteric ; SkillField=9/25 ; SkillMartialVisualListBox.headings=Visualization|Level|XPs ; \
  SkillListBox[2]=Lucid Dream|1|2|0|Control of one's own dreams through trained visualizations.|ZMC p. 40|Special| ; \
  SkillPopup=Lucid Dream ; SkillPopup.ListIndex=0 ; \
  SkillPopup.rows=Lucid Dream|Meditation|Spirit Sight ; SkillSelectPopup.ListIndex=-1 ; \
  SkillSelect{Popup,Popup.rows}= ; Skill{CategoryPopup.ListIndex,ListBox.ListCount}=3 ; \
  visualizations=Mirror Hall,1,
flag CharacterInPlayBox on
set SavedExperienceField 20
select SkillListBox 1
do SkillListBox_DoubleClick
expect changed CharacterInPlayBox=true ; SavedExperienceField=20 ; SkillLevelField=2 ; \
  SkillMartialVisualListBox.headings=Combat Move|Level|XPs ; SkillMartialVisualListBox[0]=*Punch|2| ; \
  SkillMartialVisualListBox[1]=*Kick|2| ; SkillMartialVisualListBox[2]=*Block|2| ; \
  SkillMartialVisualListBox[3]=Sweep|2| ; SkillMartialVisualListBox{.visible,[0].bold,[1].bold,[2].bold}=true ; \
  SkillNameField=Martial Arts(Iron Crane) ; SkillNotesField=Trained unarmed fighting in one style. ; \
  SkillReferenceField=ZSB p. 81 ; SkillSelectPopup.rows=Iron Crane|River Fist|Stone Palm ; \
  SkillTypeCombo=Special ; SkillXPCostField=0 ; Skill{CostField,MartialVisualListBox.ListCount}=4 ; \
  Skill{ListBox,TypeCombo}.ListIndex=1 ; s_row=1
do SkillUpDownArrows1_Up
do SkillMartialVisualListBox_ContextualMenuAction Throw
expect changed SkillLevelField=3 ; SkillMartialVisualListBox.ListCount=5 ; \
  SkillMartialVisualListBox[4]=Throw|1| ; SkillXPCostField=4
select SkillMartialVisualListBox 0
do SkillMartialVisualListBox_ContextualMenuAction Decrease -
expect changed SkillMartialVisualListBox.ListIndex=0 ; SkillMartialVisualListBox[0]=*Punch|1|
do SkillMartialVisualListBox_ContextualMenuAction Decrease -
expect changed SkillMartialVisualListBox.ListCount=4 ; SkillMartialVisualListBox.ListIndex=-1 ; \
  SkillMartialVisualListBox[0]=*Kick|2| ; SkillMartialVisualListBox[1]=*Block|2| ; \
  SkillMartialVisualListBox[2]=Sweep|2| ; SkillMartialVisualListBox[3]=Throw|1| ; \
  SkillMartialVisualListBox{[2].bold,[4]}= ; SpentExperienceField=0
do SkillRecordButton_Action
expect changed SavedExperienceField=16 ; \
  SkillListBox[1]=Martial Arts(Iron Crane)|3|4|4|Trained unarmed fighting in one style.|ZSB p. 81|Special|Iron Crane,River Fist,Stone Palm ; \
  SkillMartialVisualListBox.ListCount=0 ; SkillMartialVisualListBox.visible=false ; \
  SkillTypeCombo.ListIndex=-1 ; \
  Skill{CostField,LevelField,MartialVisualListBox[0],MartialVisualListBox[0].bold,MartialVisualListBox[1],MartialVisualListBox[1].bold,MartialVisualListBox[2],MartialVisualListBox[3],NameField,NotesField,ReferenceField,TypeCombo,XPCostField}= ; \
  SpentExperienceField=4 ; martialmaneuvers=Throw,1,,Sweep,2,,*Block,2,,*Kick,2, ; s_row=-1
