#pragma once
// The three services that the library needs from outside: texts of the user's language, small user
// interface services, and the drawing surface with its font settings. Default implementations stand
// ready; a host that brings its own sets them before the first use and shares them with the
// library.
//
//     Companions().SetLanguage(std::make_shared<MyLanguage>());
//     String text = Companions().Language().LoadText(60015, {});

#include "torlib/frame/arithmetic.h"
#include "torlib/platform/component/variant.h"

#include <memory>
#include <mutex>
#include <vector>

namespace torlib {

/// Texts and reading direction of the user-interface language.
class TORLIB_API LanguageSettings {
  public:
    virtual ~LanguageSettings();
    /// Text of a language string number. Parameters come in pairs of a placeholder and its value,
    /// such as "|1", 12; other values are ignored. An unknown number yields "#number".
    virtual String LoadText(int number, const std::vector<Variant>& parameters) = 0;
    virtual bool RightToLeft() = 0;
    /// Character set for created fonts.
    virtual int CharSet() = 0;
};

/// Small services for forms, texts and files.
class TORLIB_API UtilityServices {
  public:
    virtual ~UtilityServices();
    /// Reports a run-time error to the user.
    virtual void ShowError(const RunTimeError& error) = 0;
    /// Result of the last dialog, OK = true.
    virtual bool& DialogResult() = 0;
    virtual void PrepareForm(const Object& form) = 0;
    virtual void FinishForm(const Object& form) = 0;
    virtual void NoteFormTitle(const String& title) = 0;
    /// True when the text box's text is not acceptable: not a number, or outside lower..upper. Kind
    /// 1 asks for a whole number, any other kind for a number.
    virtual bool CheckInput(const Object& textBox, int kind, double lower, double upper) = 0;
    virtual void ShowHelpTopic(int topic) = 0;
    virtual String HelpFileName() = 0;
    virtual void ShowHelpFile() = 0;
    /// Text of a value for a listing line.
    virtual String FormatValueText(const String& value, const std::vector<Variant>& parameters) = 0;
    /// Text to a 32-bit float, with a point as decimal separator; anything else raises 13.
    virtual Single ConvertToSingle(const String& text) = 0;
    virtual bool FileIsMissing(const String& path) = 0;
    /// Upper index of dimension 1 or 2 of a caller's array; error 9 for a dimension that is not
    /// there.
    virtual int UpperBound(const SafeArray& array, int dimension) = 0;
};

/// The target drawing surface and the current font settings.
struct DrawingContext {
    Long hDC = 0;
    Single FontSize = 8;
    Long FontEscapement = 0; ///< tenths of a degree, counter-clockwise
    Long FontWeight = 400;
    bool FontItalic = false;
    bool FontUnderline = false;
    bool FontStrikeout = false;
    String FontName = u"Sans";
    Long FontHandle = 0;
};

/// The companion objects, created on first use and kept while the library is loaded. The first use
/// may come from several threads at once; a host sets its own before any other thread uses them.
class TORLIB_API CompanionObjects {
  public:
    LanguageSettings& Language();
    UtilityServices& Utility();
    DrawingContext& Drawing();

    void SetLanguage(std::shared_ptr<LanguageSettings> language);
    void SetUtility(std::shared_ptr<UtilityServices> utility);
    void SetDrawing(std::shared_ptr<DrawingContext> drawing);

  private:
    std::mutex guard_;
    std::shared_ptr<LanguageSettings> language_;
    std::shared_ptr<UtilityServices> utility_;
    std::shared_ptr<DrawingContext> drawing_;
};

/// The one set of companion objects of the loaded library.
TORLIB_API CompanionObjects& Companions();

} // namespace torlib
