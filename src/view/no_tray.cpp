#include "view/tray.h"

namespace tidvane::view {

namespace {
class NoTray final : public Tray {
public:
    bool add(const std::string&) override { return false; }
    void remove() override {}
};
}  // namespace

std::unique_ptr<Tray> makeTray() {
    return std::make_unique<NoTray>();
}

}  // namespace tidvane::view
