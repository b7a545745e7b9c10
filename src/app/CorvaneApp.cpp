#include "app/CorvaneApp.h"

#include "platform/Localisation.h"
#include "platform/Platform.h"
#include "support/Localised.h"

namespace corvane {

CorvaneApp::CorvaneApp(platform::Platform &platform)
    : shared_(platform),
      appDelegate_(platform, shared_) {
    useTextLookup([&localisation = platform.localisation()](std::string_view english) {
        return localisation.text(english);
    });
}

void CorvaneApp::finishWork() {
    shared_.clickerService.stop();
    shared_.clickerService.awaitEnd();
    shared_.storeQueue.drain();
}

CorvaneApp::~CorvaneApp() { useTextLookup({}); }

} // namespace corvane
