#pragma once
// A host's utility service that answers everything with nothing; a test overrides what it asks for.

#include "torlib/frame/companion_services.h"

namespace torlib::test {

class SilentUtility : public UtilityServices {
  public:
    void ShowError(const RunTimeError&) override {}
    bool& DialogResult() override { return result_; }
    void PrepareForm(const Object&) override {}
    void FinishForm(const Object&) override {}
    void NoteFormTitle(const String&) override {}
    bool CheckInput(const Object&, int, double, double) override { return false; }
    void ShowHelpTopic(int) override {}
    String HelpFileName() override { return {}; }
    void ShowHelpFile() override {}
    String FormatValueText(const String&, const std::vector<Variant>&) override { return {}; }
    Single ConvertToSingle(const String&) override { return 0; }
    bool FileIsMissing(const String&) override { return false; }
    int UpperBound(const SafeArray&, int) override { return 0; }

  private:
    bool result_ = false;
};

} // namespace torlib::test
