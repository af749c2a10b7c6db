#ifndef ELEMENT_DATASTORE_NODES_H
#define ELEMENT_DATASTORE_NODES_H

#include <algorithm>
#include <compare>
#include <cstddef>
#include <iterator>
#include <memory>
#include <type_traits>
#include <utility>
#include <vector>

namespace element {

struct Node;

/// The children of a node, in order. Copies share the nodes (copy on write), so a copy costs one pointer per child.
/// Access through a non-const Nodes first copies the accessed child if another Nodes shares it; access through a const
/// Nodes copies nothing. Not thread-safe.
class Nodes {
  using Row = std::vector<std::shared_ptr<Node>>;

  template <typename Element>
  class Iterator {
    using Base = std::conditional_t<std::is_const_v<Element>, Row::const_iterator, Row::iterator>;

   public:
    using iterator_category = std::random_access_iterator_tag;
    using value_type = std::remove_const_t<Element>;
    using difference_type = std::ptrdiff_t;
    using pointer = Element *;
    using reference = Element &;

    Iterator() = default;
    explicit Iterator(Base base) : base_(base) {}
    operator Iterator<const Element>() const { return Iterator<const Element>(base_); }

    reference operator*() const { return access(*base_); }
    pointer operator->() const { return &access(*base_); }
    reference operator[](difference_type n) const { return access(base_[n]); }
    Iterator &operator++() { return ++base_, *this; }
    Iterator operator++(int) { return Iterator(base_++); }
    Iterator &operator--() { return --base_, *this; }
    Iterator operator--(int) { return Iterator(base_--); }
    Iterator &operator+=(difference_type n) { return base_ += n, *this; }
    Iterator &operator-=(difference_type n) { return base_ -= n, *this; }
    friend Iterator operator+(Iterator it, difference_type n) { return it += n; }
    friend Iterator operator+(difference_type n, Iterator it) { return it += n; }
    friend Iterator operator-(Iterator it, difference_type n) { return it -= n; }
    friend difference_type operator-(Iterator a, Iterator b) { return a.base_ - b.base_; }
    friend auto operator<=>(Iterator a, Iterator b) { return a.base_ <=> b.base_; }
    friend bool operator==(Iterator a, Iterator b) { return a.base_ == b.base_; }

    Base base() const { return base_; }

   private:
    static const Node &access(const std::shared_ptr<Node> &node) { return *node; }
    static Node &access(std::shared_ptr<Node> &node) { return own(node); }

    Base base_;
  };

 public:
  using const_iterator = Iterator<const Node>;
  using iterator = Iterator<Node>;  ///< dereferencing copies the child if it is shared

  bool empty() const { return row_.empty(); }
  std::size_t size() const { return row_.size(); }
  void reserve(std::size_t count) { row_.reserve(count); }

  const_iterator begin() const { return const_iterator(row_.begin()); }
  const_iterator end() const { return const_iterator(row_.end()); }
  iterator begin() { return iterator(row_.begin()); }
  iterator end() { return iterator(row_.end()); }

  const Node &operator[](std::size_t i) const { return *row_[i]; }
  const Node &front() const { return *row_.front(); }
  const Node &back() const { return *row_.back(); }
  Node &operator[](std::size_t i) { return own(row_[i]); }
  Node &front() { return own(row_.front()); }
  Node &back() { return own(row_.back()); }

  Node &push_back(Node node);
  iterator insert(const_iterator place, Node node);
  void erase(const_iterator place) { row_.erase(place.base()); }
  void erase(const_iterator first, const_iterator last) { row_.erase(first.base(), last.base()); }
  void pop_back() { row_.pop_back(); }

  /// Appends child `i` of `others`; both share it.
  void push_back_shared(const Nodes &others, std::size_t i) { row_.push_back(others.row_[i]); }

  void append_shared(const Nodes &others) { row_.insert(row_.end(), others.row_.begin(), others.row_.end()); }

  /// Appends the children of `others` from place `first` to before `end`; both share them.
  void append_shared(const Nodes &others, std::size_t first, std::size_t end) {
    const auto begin = others.row_.begin();
    row_.insert(row_.end(), begin + static_cast<std::ptrdiff_t>(first), begin + static_cast<std::ptrdiff_t>(end));
  }

  /// Replaces child `i` by child `other` of `others`; both share it.
  void replace_shared(std::size_t i, const Nodes &others, std::size_t other) { row_[i] = others.row_[other]; }

  /// Sorts the children without copying any; equal ones keep their order. Time is linear if they are sorted already.
  template <typename Before>
  void sort(Before before) {
    const auto in_order = [&before](const auto &a, const auto &b) {
      return before(std::as_const(*a), std::as_const(*b));
    };
    if (!std::is_sorted(row_.begin(), row_.end(), in_order)) std::stable_sort(row_.begin(), row_.end(), in_order);
  }

 private:
  static Node &own(std::shared_ptr<Node> &node);

  Row row_;
};

}  // namespace element

#endif
