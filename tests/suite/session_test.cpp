#include <string>
#include <vector>

#include "platform/suite/crvnmdl.h"
#include "tests/suite/suite_fixture.h"

namespace {

// Exported classes are one pointer to their state, so that it may grow without clients being compiled again.
static_assert(sizeof(CwFileType) == sizeof(void*));
static_assert(sizeof(CwFileTypeSet) == sizeof(void*));
static_assert(sizeof(CwStartupParam) == sizeof(void*));
static_assert(sizeof(CwSessionParam) == sizeof(void*));
static_assert(sizeof(CwRegister) == sizeof(void*));
static_assert(sizeof(CwRegisterSet) == sizeof(void*));
static_assert(sizeof(CwTextLibrary) == sizeof(void*));
static_assert(sizeof(CwSession) == sizeof(void*));
static_assert(sizeof(CwModel) == sizeof(void*));
static_assert(sizeof(CwModelTitle) == sizeof(void*));
static_assert(sizeof(CwModelTitleSet) == sizeof(void*));
static_assert(sizeof(CwMessageTable) == sizeof(void*));
static_assert(sizeof(CwFileFinder) == sizeof(void*));

class Session : public SuiteTest {};

TEST_F(Session, KindsAreKeptAsCopies) {
  CwFileTypeSet* kinds = session_.GetActiveFileTypeSet();
  EXPECT_EQ(kinds->GetFileType("#MODEL#"), nullptr);
  {
    CwFileType kind("#MODEL#", "C:/m", "*.MDL", 3, CwLetterCase::Upper);
    kind.SetDescription("x");
    EXPECT_TRUE(kinds->AddFileType(kind));
    kind.SetDescription("y");
  }
  const CwFileType* found = static_cast<const CwFileTypeSet*>(kinds)->GetFileType("#MODEL#");
  ASSERT_NE(found, nullptr);
  EXPECT_EQ(found->GetKeyword(), "#MODEL#");
  EXPECT_EQ(found->GetFolder(), "C:/m");
  EXPECT_EQ(found->GetPatterns(), "*.MDL");
  EXPECT_EQ(found->GetFlag(), 3);
  EXPECT_EQ(found->GetDescription(), "x");
  EXPECT_TRUE(found->IsUpperCase());
  EXPECT_FALSE(found->IsLowerCase());
}

TEST_F(Session, WhatIsUnknownIsNull) {
  const CwFileTypeSet& kinds = *session_.GetActiveFileTypeSet();
  EXPECT_EQ(kinds.GetFileType("#MODEL#"), nullptr);
  const CwRegisterSet& registers = *session_.GetRegisterSet();
  EXPECT_EQ(registers.GetRegister("A0"), nullptr);
  const CwModelTitle title;
  EXPECT_EQ(title.GetNumber(), 0);
  EXPECT_EQ(title.GetName(), "");
}

TEST_F(Session, AKindReplacesThatOfItsKeyword) {
  CwFileTypeSet* kinds = session_.GetActiveFileTypeSet();
  kinds->AddFileType(CwFileType("#MODEL#", "C:/m", "*.MDL", 0, CwLetterCase::Lower));
  const CwFileType* kind = kinds->GetFileType("#MODEL#");
  const CwFileType other("#MODEL#", "D:/n", "", false);
  EXPECT_TRUE(kinds->AddFileType(&other));
  EXPECT_EQ(kinds->GetFileType("#MODEL#"), kind);
  EXPECT_EQ(kind->GetFolder(), "D:/n");
  EXPECT_FALSE(kind->IsLowerCase());
  EXPECT_TRUE(kinds->AddFileType(*kind));
  EXPECT_EQ(kind->GetFolder(), "D:/n");
  EXPECT_EQ(kinds->GetFileType("#model#"), nullptr);
  EXPECT_FALSE(kinds->AddFileType(static_cast<const CwFileType*>(nullptr)));
  const CwFileType nameless("", "C:/m", "*", 0);
  EXPECT_FALSE(kinds->AddFileType(nameless));
  EXPECT_FALSE(kinds->AddFileType(&nameless));
}

TEST_F(Session, KindsAreListedByTheirKeywordsAndRemoved) {
  CwFileTypeSet* kinds = session_.GetActiveFileTypeSet();
  EXPECT_TRUE(kinds->GetKeywords().empty());
  kinds->AddFileType(CwFileType("#B#", "C:/b", "*", 0));
  kinds->AddFileType(CwFileType("#A#", "C:/a", "*", 0));
  EXPECT_EQ(kinds->GetKeywords(), (std::vector<std::string>{"#A#", "#B#"}));
  EXPECT_TRUE(kinds->RemoveFileType("#A#"));
  EXPECT_FALSE(kinds->RemoveFileType("#A#"));
  EXPECT_EQ(kinds->GetFileType("#A#"), nullptr);
  EXPECT_EQ(kinds->GetKeywords(), std::vector<std::string>{"#B#"});
}

TEST_F(Session, TheExtensionIsThatOfTheFirstPattern) {
  EXPECT_EQ(CwFileType("k", "", "*.MDL", 0).GetExtension(), ".MDL");
  EXPECT_EQ(CwFileType("k", "", " *.a.TIF, *.BMP", 0).GetExtension(), ".TIF");
  EXPECT_EQ(CwFileType("k", "", "*;*.BMP", 0).GetExtension(), "");
  EXPECT_EQ(CwFileType("k", "", "", 0).GetExtension(), "");
  EXPECT_EQ(CwFileType("k", "", " ;", 0).GetExtension(), "");
}

TEST_F(Session, StartupParametersAreDefinedOrNot) {
  CwStartupParam* parameters = session_.GetStartupParam();
  EXPECT_FALSE(parameters->IsDefined("SXF_USE_LAST_HOLDER"));
  parameters->Define("SXF_USE_LAST_HOLDER");
  EXPECT_TRUE(parameters->IsDefined("SXF_USE_LAST_HOLDER"));
  parameters->Undefine("SXF_USE_LAST_HOLDER");
  EXPECT_FALSE(parameters->IsDefined("SXF_USE_LAST_HOLDER"));
}

TEST_F(Session, MessagesComeByTableAndNumber) {
  CwMessage::GetMessageTable()->SetMessage(5, "five");
  CwMessage::GetErrorTable()->SetMessage(5, "error");
  EXPECT_STREQ(CwMessage::FindMessage(CwMessage::GetMessageTable(), 5), "five");
  EXPECT_STREQ(CwMessage::FindMessage(CwMessage::GetErrorTable(), 5), "error");
  EXPECT_EQ(CwMessage::FindMessage(CwMessage::GetMessageTable(), 6), nullptr);
  EXPECT_EQ(CwMessage::FindMessage(nullptr, 5), nullptr);
}

TEST_F(Session, RegisterNamesAreGroupAndIndex) {
  EXPECT_EQ(CwRegisterSet::GetRegisterName(1, 0), "A0");
  EXPECT_EQ(CwRegisterSet::GetRegisterName(26, 999), "Z999");
  EXPECT_EQ(CwRegisterSet::GetRegisterName(0, 0), "");
  EXPECT_EQ(CwRegisterSet::GetRegisterName(27, 0), "");
  EXPECT_EQ(CwRegisterSet::GetRegisterName(1, 1000), "");
  EXPECT_EQ(CwRegisterSet::GetRegisterName(1, -1), "");
}

TEST_F(Session, RegistersHoldANumberOrATextOrNothing) {
  CwRegisterSet* registers = session_.GetRegisterSet();
  EXPECT_EQ(registers->GetRegister("A1"), nullptr);
  CwRegister* content = registers->AddRegister("A1");
  EXPECT_TRUE(content->IsEmpty());
  content->SetScalar(0.5);
  EXPECT_FALSE(content->IsEmpty());
  EXPECT_TRUE(content->IsScalar());
  EXPECT_EQ(content->GetScalar(), 0.5);
  EXPECT_EQ(content->GetText(), "");
  content->SetText("x");
  EXPECT_FALSE(content->IsScalar());
  EXPECT_EQ(content->GetText(), "x");
  EXPECT_EQ(registers->AddRegister("A1"), content);
  content->SetEmpty();
  EXPECT_TRUE(registers->GetRegister("A1")->IsEmpty());
}

TEST_F(Session, RegisterNamesAreInOrder) {
  for (const char* name : {"B0", "x", "A10", "A2", "A02"}) session_.GetRegisterSet()->AddRegister(name);
  EXPECT_EQ(session_.GetRegisterSet()->GetNames(), (std::vector<std::string>{"A2", "A10", "B0", "A02", "x"}));
}

TEST_F(Session, TheActiveModelMayBeNone) {
  EXPECT_EQ(GetActiveModel(), nullptr);
  CwModel other;
  SetActiveModel(&other);
  EXPECT_EQ(GetActiveModel(), &other);
  CwModel* own = session_.OpenModel();
  EXPECT_EQ(GetActiveModel(), own);
  EXPECT_EQ(session_.OpenModel(), own);
  SetActiveModel(&other);
  session_.CloseModel();
  EXPECT_EQ(GetActiveModel(), &other);
  session_.OpenModel();
  session_.CloseModel();
  EXPECT_EQ(GetActiveModel(), nullptr);
}

TEST_F(Session, TitlesHaveNumbersFrom1To207) {
  CwModel model;
  CwModelTitleSet* titles = model.GetModelTitleSet();
  for (const int number : {-1, 0, 208, 1000000}) {
    EXPECT_FALSE(titles->SetTitle(number, 1, "x"));
    EXPECT_EQ(titles->GetTitle(number), nullptr);
    titles->RemoveTitle(number);
  }
  EXPECT_EQ(titles->GetTitle(207), nullptr);
  EXPECT_TRUE(titles->SetTitle(207, 30001, "x"));
  EXPECT_TRUE(titles->SetTitle(1, 0xFFFF, "y"));
  EXPECT_EQ(titles->GetTitle(207)->GetKindCode(), 30001);
  EXPECT_EQ(titles->GetTitle(207)->GetName(), "x");
  EXPECT_EQ(titles->GetTitle(1)->GetNumber(), 1);
  EXPECT_EQ(titles->GetTitle(1)->GetKindCode(), 0xFFFF);
  titles->RemoveTitle(1);
  EXPECT_EQ(titles->GetTitle(1), nullptr);
}

TEST_F(Session, ResetForgetsEverything) {
  session_.GetActiveFileTypeSet()->AddFileType(CwFileType("#M#", "C:/m", "*", 0));
  session_.GetStartupParam()->Define("P");
  session_.GetSessionParam()->SetFileTitleDisplay(1);
  session_.GetRegisterSet()->AddRegister("A1");
  session_.GetTextLibrary()->AddText("a", "b");
  session_.OpenModel();
  CwMessage::GetMessageTable()->SetMessage(1, "a");
  CwMessage::GetErrorTable()->SetMessage(1, "a");
  CwSession::Reset();
  EXPECT_EQ(session_.GetActiveFileTypeSet()->GetFileType("#M#"), nullptr);
  EXPECT_FALSE(session_.GetStartupParam()->IsDefined("P"));
  EXPECT_EQ(session_.GetSessionParam()->GetFileTitleDisplay(), 0);
  EXPECT_EQ(session_.GetRegisterSet()->GetRegister("A1"), nullptr);
  EXPECT_TRUE(session_.GetTextLibrary()->GetTexts("*").empty());
  EXPECT_EQ(GetActiveModel(), nullptr);
  EXPECT_EQ(CwMessage::FindMessage(CwMessage::GetMessageTable(), 1), nullptr);
  EXPECT_EQ(CwMessage::FindMessage(CwMessage::GetErrorTable(), 1), nullptr);
}

TEST_F(Session, LibrariesAreChosenByPattern) {
  CwTextLibrary* texts = session_.GetTextLibrary();
  texts->AddText("pipe.tlb", "1");
  texts->AddText("duct.tlb", "2");
  texts->AddText("PIPE.TLB", "3");
  EXPECT_EQ(texts->GetTexts("*"), (std::vector<std::string>{"1", "2", "3"}));
  EXPECT_EQ(texts->GetTexts("pipe.tlb"), (std::vector<std::string>{"1", "3"}));
  EXPECT_TRUE(texts->GetTexts("none").empty());
}

}  // namespace
