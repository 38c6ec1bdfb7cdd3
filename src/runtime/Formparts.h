#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/Toolsapi.h"

namespace tml {

/// A component of a form as a running program has it: with what its ancestor gives it and the form changes.
struct TFormPart {
    std::string Path;  ///< from the form or frame on, through frames; "" for the form or frame itself
    std::string Name;
    std::string ClassName;
    std::vector<TFormProperty> Properties;  ///< as asked for; none of a localization component
    /// In the form's own file; nullptr for one that only its ancestors and frames hold.
    std::shared_ptr<IOTAComponent> Component;
    int Holder = -1;  ///< index of the component whose block it stands in, -1 for the form itself
    bool IsFrame = false;
    std::shared_ptr<IOTAComponent> FrameForm = {};  ///< a frame's own form; nullptr where that is not found
    bool TranslatesItself = false;  ///< stands on a frame that has a localization component of its own
};

/// All components of a form, frame or data module: its file's, its ancestors' and its frames'.
class TFormParts {
  public:
    /// What stands on a frame that translates itself is no concern of the form that the frame stands on;
    /// whoever wants to see the form wants to see the frame whole.
    enum class TFrames { Translated, Whole };
    /// Whose properties are only looked at for texts, those that may hold some are read.
    enum class TProps { All, OfTexts };
    explicit TFormParts(const std::shared_ptr<IOTAComponent>& owner, TFrames frames = TFrames::Translated,
                        TProps props = TProps::All);

    const std::vector<TFormPart>& Items() const { return parts_; }
    /// The component at a path, without regard to case; nullptr when there is none.
    const TFormPart* Find(std::string_view path) const;
    /// The component that a key of a table begins with, by as many names as are those of components.
    const TFormPart* OfKey(std::string_view key) const;
    /// Paths ("" for the form itself) of what repeats a form that was not found: there may be more components
    /// below.
    const std::vector<std::string>& Unseen() const { return unseen_; }

  private:
    struct TPlaces;
    using TComponentPtr = std::shared_ptr<IOTAComponent>;
    void Read(const TComponentPtr& owner, const std::string& path, int holder);
    void ReadBlock(const TComponentPtr& owner, const std::string& path, int holder);
    void ReadOwned(const TComponentPtr& component, const std::string& path, TPlaces& places);
    int Overlay(const TComponentPtr& component, const std::string& path, int holder);
    void LeaveTranslated(std::size_t begin);

    TFrames frames_;
    TProps props_;
    std::vector<TFormPart> parts_;
    std::unordered_map<std::string, int> byPath_;  ///< upper-cased
    std::vector<std::string> unseen_;
    int depth_ = 0;
    int above_ = 0;  ///< ancestors and frames' own forms around what is being read
};

}  // namespace tml
