#include "model/JsonWriting.h"

#include "support/NumberText.h"

#include <cmath>
#include <utility>

namespace corvane {

namespace {

using Json = nlohmann::json;

std::string quotedText(const Json &string) {
    std::string text;
    for (const char character : string.dump(-1, ' ', false, Json::error_handler_t::replace)) {
        text += character == '/' ? "\\/" : std::string(1, character);
    }
    return text;
}

/// Lays out one value after the other.
class JsonWriter {
  public:
    void value(const Json &json) {
        if (json.is_structured()) {
            container(json);
        } else if (json.is_string()) {
            text_ += quotedText(json);
        } else if (json.is_number_float()) {
            number(json.get<double>());
        } else {
            text_ += json.dump();
        }
    }

    Outcome<std::string> finish() {
        if (!isRepresentable_) {
            return std::unexpected(Failure{"a number is not finite"});
        }
        return std::move(text_);
    }

  private:
    void container(const Json &json) {
        text_ += json.is_object() ? '{' : '[';
        ++level_;
        for (auto element = json.begin(); element != json.end(); ++element) {
            text_ += element == json.begin() ? "" : ",";
            beginLine();
            if (json.is_object()) {
                text_ += quotedText(element.key()) + " : ";
            }
            value(*element);
        }
        --level_;
        text_ += json.empty() ? "\n" : "";
        beginLine();
        text_ += json.is_object() ? '}' : ']';
    }

    void number(double value) {
        isRepresentable_ = isRepresentable_ && std::isfinite(value);
        text_ += shortestNumberText(value);
    }

    void beginLine() { text_.append("\n").append(2 * level_, ' '); }

    std::string text_;
    std::size_t level_ = 0;
    bool isRepresentable_ = true;
};

} // namespace

Outcome<std::string> jsonText(const Json &json) {
    JsonWriter writer;
    writer.value(json);
    return writer.finish();
}

} // namespace corvane
