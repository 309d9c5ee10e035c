// SPDX-License-Identifier: MIT
#include "platform/headless/world.h"

namespace platform {

using headless::world;

namespace {

std::optional<NSError> change(std::string_view call, SMAppServiceStatus onSuccess) {
  world().record("login item " + std::string(call));
  auto& item = world().loginItem;
  if (item.failure) return NSError{*item.failure};
  item.status = onSuccess;
  return std::nullopt;
}

}  // namespace

SMAppService& SMAppService::mainAppService() {
  static SMAppService service;
  return service;
}

SMAppServiceStatus SMAppService::status() const { return world().loginItem.status; }

std::optional<NSError> SMAppService::registerAndReturnError() {
  ++world().loginItem.registrations;
  return change("register", world().loginItem.statusAfterRegistration);
}

std::optional<NSError> SMAppService::unregisterAndReturnError() {
  ++world().loginItem.unregistrations;
  return change("unregister", SMAppServiceStatusNotRegistered);
}

headless::LoginItem& headless::loginItem() { return world().loginItem; }

}  // namespace platform
