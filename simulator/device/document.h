// A fiscal document while it is open: what was sold, and what it comes to.
#pragma once

#include "simulator/device/amounts.h"
#include "simulator/device/configuration.h"

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace corvid::simulator {

enum class DocumentKind { Invoice, DebitNote, CreditNote };
inline constexpr std::size_t kDocumentKinds = 3;

struct Item {
  std::size_t rate = 0;  // index, see kRateCount
  Price price = 0;
  Quantity quantity = 0;
  std::string description;
  std::string code;  // empty: none
};

// A discount or surcharge on the subtotal.
struct Adjustment {
  bool isPercent = false;
  bool isDiscount = true;
  std::int64_t value = 0;  // hundredths, of a percent or of the currency unit
};

struct Payment {
  std::size_t method = 1;  // 1 to kPaymentMeans
  Amount amount = 0;
  // What of a foreign-currency payment went to the document, and the levy on it, which is collected
  // on top of the amount by the same method.
  TaxedAmount levy{};
};

using RateSums = std::array<TaxedAmount, kRateCount>;

struct Totals {
  RateSums byRate{};
  Amount subtotal = 0;  // of the lines and adjustments as they stand on the paper
  Amount total = 0;     // bases and taxes, without the levy on payments
};

class Document {
 public:
  // Without a levy rate, payments in foreign currency are like any other.
  Document(DocumentKind kind, const Rates& rates, std::optional<Rate> levyRate)
      : kind_(kind), rates_(rates), levyRate_(levyRate) {}

  [[nodiscard]] DocumentKind kind() const { return kind_; }

  // Each of these changes nothing and returns nothing (pay: false) for what makes no sense.

  // Adds an item and returns its amount. Refused: no quantity or price, a rate that is none, too
  // large an amount, an item after the first payment.
  std::optional<Amount> sell(const Item& item);

  // Takes back items sold before at the same rate and price, whole or in part, whatever their
  // description, and returns the amount taken off.
  std::optional<Amount> takeBack(const Item& item);

  // Spreads a discount or surcharge over the rates in proportion, so that the parts add up to the
  // whole, and returns its signed amount. Refused: above 100 percent or the subtotal, or after the
  // first payment.
  std::optional<Amount> adjust(const Adjustment& adjustment);

  // Pays an amount, or for 0 all that is left. The levy on a foreign-currency payment is rounded
  // half up for each payment; it comes on top and leaves what is left to pay as it is. Refused: a
  // method that is none, a document without items, a credit note's refund above what is left.
  bool pay(std::size_t method, Amount amount);

  [[nodiscard]] bool hasItems() const;
  [[nodiscard]] bool hasPayments() const { return !payments_.empty(); }
  [[nodiscard]] Totals totals() const;
  [[nodiscard]] Quantity quantity() const;  // of all items, less what was taken back
  [[nodiscard]] TaxedAmount levy() const;   // of all payments so far
  [[nodiscard]] Amount left() const;        // still to be paid, 0 when paid
  [[nodiscard]] Amount change() const;      // paid beyond the total
  [[nodiscard]] const std::vector<Payment>& payments() const { return payments_; }
  [[nodiscard]] const Rates& rates() const { return rates_; }

 private:
  [[nodiscard]] Amount adjustable() const;
  [[nodiscard]] Amount paid() const;
  void spread(Amount amount);
  void takeFromSold(const Item& item);
  [[nodiscard]] TaxedAmount levyOn(const Payment& payment) const;
  [[nodiscard]] Quantity soldOf(const Item& item) const;

  DocumentKind kind_;
  Rates rates_;
  std::optional<Rate> levyRate_;
  std::vector<Item> sold_;  // with the quantity that was not taken back
  std::array<Amount, kRateCount> amounts_{};
  std::vector<Payment> payments_;
};

}  // namespace corvid::simulator
