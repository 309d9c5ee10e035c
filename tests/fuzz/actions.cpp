// SPDX-License-Identifier: MIT
#include <QJsonArray>
#include <QJsonDocument>

#include "platform/desktop/session/exported_actions.h"
#include "tests/fuzz/fuzz.h"

namespace {

using namespace platform;

std::shared_ptr<NSMenu> makeMenu() {
  auto menu = std::make_shared<NSMenu>();
  menu->addItem(std::make_shared<NSMenuItem>("Show Note", Selector{"toggleWindow"}, "n"));
  menu->addItem(NSMenuItem::separatorItem());
  menu->addItem(std::make_shared<NSMenuItem>("Pin", Selector{"togglePin"}, "p"));
  return menu;
}

}  // namespace

/// The first line is an action's name, the rest its parameter, as a JSON array.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using fuzz::require;
  static const auto menu = makeMenu();
  desktop::ExportedActions commands;
  commands.setMenu(menu);

  const std::string bytes = fuzz::bytesOf(data, size);
  std::string_view rest = bytes;
  const std::string_view name = fuzz::cut(rest, '\n');
  const auto parameter = QJsonDocument::fromJson(QByteArray(rest.data(), static_cast<qsizetype>(rest.size()))).array();

  QString refusal;
  const auto command = commands.named(QString::fromStdString(std::string(name)), parameter.toVariantList(), refusal);
  const bool offered = name == "toggleWindow" || name == "togglePin";
  require(bool(command) == (offered && parameter.isEmpty()), "an action is one of the menu's, without a parameter");
  require(refusal.isEmpty() == bool(command), "what is refused is refused with a reason");
  if (command) require(command->action().name == name, "the action is the one that was named");
  return 0;
}
