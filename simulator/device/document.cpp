#include "simulator/device/document.h"

#include <algorithm>
#include <numeric>

namespace corvid::simulator {
namespace {

constexpr std::int64_t kWholePercent = 10'000;

bool isSameArticle(const Item& a, const Item& b) { return a.rate == b.rate && a.price == b.price; }

std::optional<Amount> amountOf(const Item& item) {
  const bool makesSense = item.rate < kRateCount && item.price > 0 && item.quantity > 0 &&
                          item.quantity <= kMaxQuantity;
  return makesSense ? lineAmount(item.price, item.quantity) : std::nullopt;
}

}  // namespace

std::optional<Amount> Document::sell(const Item& item) {
  const std::optional<Amount> amount = amountOf(item);
  if (!amount || hasPayments()) {
    return std::nullopt;
  }
  amounts_.at(item.rate) += *amount;
  if (totals().total > kMaxAmount) {
    amounts_.at(item.rate) -= *amount;
    return std::nullopt;
  }
  sold_.push_back(item);
  return amount;
}

std::optional<Amount> Document::takeBack(const Item& item) {
  const std::optional<Amount> amount = amountOf(item);
  // After a discount, or through rounding, a rate may hold less than its items came to.
  if (!amount || hasPayments() || soldOf(item) < item.quantity ||
      amounts_.at(item.rate) < *amount) {
    return std::nullopt;
  }
  takeFromSold(item);
  amounts_.at(item.rate) -= *amount;
  return amount;
}

std::optional<Amount> Document::adjust(const Adjustment& adjustment) {
  const Amount whole = adjustable();
  const bool isTooMuch =
      adjustment.isPercent ? adjustment.value > kWholePercent : adjustment.value > whole;
  if (isTooMuch || hasPayments() || !hasItems()) {
    return std::nullopt;
  }
  const Amount size = adjustment.isPercent
                          ? roundedQuotient(whole * adjustment.value, kWholePercent)
                          : adjustment.value;
  const Amount amount = adjustment.isDiscount ? -size : size;
  const auto before = amounts_;
  spread(amount);
  if (totals().total > kMaxAmount) {
    amounts_ = before;
    return std::nullopt;
  }
  return amount;
}

bool Document::pay(std::size_t method, Amount amount) {
  const bool isKnown = method >= 1 && method <= kPaymentMethods;
  const bool isRefundTooLarge = kind_ == DocumentKind::CreditNote && amount > left();
  if (!isKnown || isRefundTooLarge || !hasItems() || amount > kMaxAmount) {
    return false;
  }
  Payment payment{method, amount == 0 ? left() : amount};
  payment.levy = levyOn(payment);
  payments_.push_back(payment);
  return true;
}

bool Document::hasItems() const {
  return std::any_of(sold_.begin(), sold_.end(),
                     [](const Item& item) { return item.quantity > 0; });
}

Totals Document::totals() const {
  Totals totals;
  for (std::size_t i = 0; i < kRateCount; ++i) {
    const bool isTaxed = i >= 1 && i <= kTaxRates;
    totals.byRate.at(i) = taxed(amounts_.at(i), isTaxed ? rates_.at(i - 1) : Rate{});
    totals.subtotal += amounts_.at(i);
    totals.total += totals.byRate.at(i).base + totals.byRate.at(i).tax;
  }
  return totals;
}

Quantity Document::quantity() const {
  return std::accumulate(sold_.begin(), sold_.end(), Quantity{0},
                         [](Quantity sum, const Item& item) { return sum + item.quantity; });
}

TaxedAmount Document::levy() const {
  TaxedAmount sum;
  for (const Payment& payment : payments_) {
    sum.base += payment.levy.base;
    sum.tax += payment.levy.tax;
  }
  return sum;
}

Amount Document::left() const { return std::max<Amount>(0, totals().total - paid()); }

Amount Document::change() const { return std::max<Amount>(0, paid() - totals().total); }

// The change goes back in cash: what it came from bears no levy.
TaxedAmount Document::levyOn(const Payment& payment) const {
  if (payment.method < kFirstForeignMethod || !levyRate_) {
    return {};
  }
  const Amount base = std::min(payment.amount, left());
  return {base, roundedQuotient(base * levyRate_->hundredths, kWholePercent)};
}

Amount Document::adjustable() const {
  return std::accumulate(amounts_.begin(), amounts_.begin() + kCollectedRate, Amount{0});
}

Amount Document::paid() const {
  return std::accumulate(payments_.begin(), payments_.end(), Amount{0},
                         [](Amount sum, const Payment& payment) { return sum + payment.amount; });
}

// Shares what is left of the amount by what is left of the base, so that no cent is lost.
void Document::spread(Amount amount) {
  Amount size = amount < 0 ? -amount : amount;
  Amount base = adjustable();
  for (std::size_t i = 0; i < kCollectedRate && base > 0; ++i) {
    const Amount share = roundedShare(size, amounts_.at(i), base);
    base -= amounts_.at(i);
    size -= share;
    amounts_.at(i) += amount < 0 ? -share : share;
  }
}

Quantity Document::soldOf(const Item& item) const {
  return std::accumulate(sold_.begin(), sold_.end(), Quantity{0},
                         [&](Quantity sum, const Item& sold) {
                           return isSameArticle(sold, item) ? sum + sold.quantity : sum;
                         });
}

void Document::takeFromSold(const Item& item) {
  Quantity left = item.quantity;
  for (Item& sold : sold_) {
    if (isSameArticle(sold, item)) {
      const Quantity part = std::min(left, sold.quantity);
      sold.quantity -= part;
      left -= part;
    }
  }
}

}  // namespace corvid::simulator
