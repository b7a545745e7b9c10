#include "app/CorvaneApp.h"

#include "platform/Localisation.h"
#include "platform/Platform.h"
#include "support/Localised.h"

namespace corvane {

CorvaneApp::CorvaneApp(platform::Platform &platform)
    : shared_(platform),
      appDelegate_(std::make_shared<AppDelegate>(platform, shared_)) {
    useTextLookup([&localisation = platform.localisation()](std::string_view english) {
        return localisation.text(english);
    });
}

CorvaneApp::~CorvaneApp() { useTextLookup({}); }

} // namespace corvane
