#include "torlib/frame/companion_services.h"

#include "torlib/frame/text_tables.h"

#include <cmath>
#include <cstdio>
#include <filesystem>

namespace torlib {

namespace {

class TableLanguage final : public LanguageSettings {
  public:
    String LoadText(int number, const std::vector<Variant>& parameters) override {
        const std::u16string_view text = TableText(language_, number);
        return text.empty() ? u"#" + FromUtf8(std::to_string(number))
                            : FillPlaceholders(text, parameters);
    }
    bool RightToLeft() override { return false; }
    int CharSet() override { return 0; }

  private:
    TextLanguage language_ = LanguageOfEnvironment();
};

/// Without windows of its own: errors go to the standard error stream, help says where to look.
class PlainUtility final : public UtilityServices {
  public:
    void ShowError(const RunTimeError& error) override {
        std::fprintf(stderr, "%s\n", error.what());
    }
    bool& DialogResult() override { return dialogResult_; }
    void PrepareForm(const Object&) override {}
    void FinishForm(const Object&) override {}
    void NoteFormTitle(const String&) override {}
    bool CheckInput(const Object& textBox, int kind, double lower, double upper) override {
        try {
            const double value = textBox.Get(u"Text").ToDouble();
            return value < lower || value > upper || (kind == 1 && value != std::floor(value));
        } catch (const RunTimeError&) {
            return true;
        }
    }
    void ShowHelpTopic(int topic) override {
        std::fprintf(stderr, "Help topic %d: see %s\n", topic, ToUtf8(HelpFileName()).c_str());
    }
    String HelpFileName() override { return u"README.md"; }
    void ShowHelpFile() override {
        std::fprintf(stderr, "Help: see %s\n", ToUtf8(HelpFileName()).c_str());
    }
    String FormatValueText(const String& value, const std::vector<Variant>&) override {
        return value;
    }
    Single ConvertToSingle(const String& text) override { return ParseNumber(text); }
    bool FileIsMissing(const String& path) override {
        std::error_code failure;
        return !std::filesystem::exists(ToUtf8(path), failure);
    }
    int UpperBound(const SafeArray& array, int dimension) override {
        return array.UBound(dimension);
    }

  private:
    bool dialogResult_ = false;
};

template <class Default, class Service>
Service& Ensure(std::mutex& guard, std::shared_ptr<Service>& service) {
    const std::lock_guard lock(guard);
    if (!service) {
        service = std::make_shared<Default>();
    }
    return *service;
}

} // namespace

LanguageSettings::~LanguageSettings() = default;
UtilityServices::~UtilityServices() = default;

LanguageSettings& CompanionObjects::Language() {
    return Ensure<TableLanguage>(guard_, language_);
}

UtilityServices& CompanionObjects::Utility() {
    return Ensure<PlainUtility>(guard_, utility_);
}

DrawingContext& CompanionObjects::Drawing() {
    return Ensure<DrawingContext>(guard_, drawing_);
}

void CompanionObjects::SetLanguage(std::shared_ptr<LanguageSettings> language) {
    language_ = std::move(language);
}

void CompanionObjects::SetUtility(std::shared_ptr<UtilityServices> utility) {
    utility_ = std::move(utility);
}

void CompanionObjects::SetDrawing(std::shared_ptr<DrawingContext> drawing) {
    drawing_ = std::move(drawing);
}

CompanionObjects& Companions() {
    static CompanionObjects companions;
    return companions;
}

} // namespace torlib
