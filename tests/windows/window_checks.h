#pragma once

#include <QWidget>

/// What is to hold in every window, for what is visible of it.
namespace orvex::test {

void ExpectNamesAndTips(const QWidget& window);
void ExpectNoTwoAccessKeys(const QWidget& window);
void ExpectReachedByTab(const QWidget& window);
/// Nothing that a person reads is drawn in less room than it needs.
void ExpectWhole(const QWidget& window);

}  // namespace orvex::test
