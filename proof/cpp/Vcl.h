// The few names of the component library that the samples use, so that they compile without it.
#ifndef VclH
#define VclH
#include <string>

#define __published public
#define __fastcall

class String {
  public:
    String() = default;
    String(const char* text) : text_(text) {}
    String(const wchar_t* text) : wide_(text) {}
    String operator+(const String& other) const { return String((text_ + other.text_).c_str()); }
    bool operator==(const String& other) const { return text_ == other.text_; }
    const char* c_str() const { return text_.c_str(); }

  private:
    std::string text_;
    std::wstring wide_;
};
inline String operator+(const char* left, const String& right) {
    return String(left) + right;
}

class TObject {};
class TForm : public TObject {
  public:
    String Caption;
};
class TmlLang : public TObject {
  public:
    String GetTextOrDefault(const char* id) { return String(id); }
};
#define _T(text) text
inline void ShowMessage(const String&) {}
#endif
