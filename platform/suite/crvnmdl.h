// Core library crvnmdl: a model and the titles it defines.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "platform/suite/export.h"

/// A title that a model defines.
class SUITE_API CwModelTitle {
 public:
  /// A title without a name: number and kind code 0.
  CwModelTitle();
  /// `name` is EUC-JP.
  CwModelTitle(int number, std::uint16_t kindCode, const std::string& name);
  /// Copies have nothing in common.
  CwModelTitle(const CwModelTitle& other);
  CwModelTitle& operator=(const CwModelTitle& other);
  ~CwModelTitle();

  /// The number of the title; the code of its kind.
  [[nodiscard]] int GetNumber() const;
  [[nodiscard]] std::uint16_t GetKindCode() const;
  /// EUC-JP.
  [[nodiscard]] const std::string& GetName() const;

 private:
  struct State;
  std::unique_ptr<State> state_;
};

/// The titles of a model by number: 1 to 200 are ordinary titles, 201 to 207 further ones.
class SUITE_API CwModelTitleSet {
 public:
  CwModelTitleSet();
  ~CwModelTitleSet();
  CwModelTitleSet(const CwModelTitleSet&) = delete;
  CwModelTitleSet& operator=(const CwModelTitleSet&) = delete;

  /// The title of a number, or null. It stays valid until the title is removed.
  [[nodiscard]] const CwModelTitle* GetTitle(int number) const;
  /// Defines or replaces a title; `name` is EUC-JP. False when the number is not from 1 to 207.
  bool SetTitle(int number, std::uint16_t kindCode, const std::string& name);
  /// Forgets the title of a number, if there is one.
  void RemoveTitle(int number);

 private:
  struct State;
  std::unique_ptr<State> state_;
};

/// A model.
class SUITE_API CwModel {
 public:
  CwModel();
  ~CwModel();
  CwModel(const CwModel&) = delete;
  CwModel& operator=(const CwModel&) = delete;

  /// Its titles; never null.
  [[nodiscard]] CwModelTitleSet* GetModelTitleSet();

 private:
  struct State;
  std::unique_ptr<State> state_;
};
