#include "tests/fuzz/input_memory.h"

#include <sanitizer/asan_interface.h>

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <new>

namespace qvx::fuzz {
namespace {

enum class Form : std::uint64_t { None, One, Many };

/// Stands before each block, and behind the one before it: poisoned like all that is nobody's.
struct Head {
  Form form;
  std::uint64_t size;
};

// More than most inputs take; the rest comes from the sanitizer's allocator.
constexpr std::size_t kSize = 1 << 20;
alignas(Head) unsigned char memory[kSize];
std::size_t used;
std::size_t blocks;
bool isOpen;
std::size_t mostOfBlock = SIZE_MAX;

constexpr std::size_t Rounded(std::size_t size) {
  return (size + sizeof(Head) - 1) / sizeof(Head) * sizeof(Head);
}

[[noreturn]] void End(const char* reason) {
  std::fprintf(stderr, "==0== ERROR: memory: %s\n", reason);
  std::abort();
}

__attribute__((no_sanitize("address"))) void SetHead(unsigned char* block, Head head) {
  *reinterpret_cast<Head*>(block - sizeof(Head)) = head;
}

__attribute__((no_sanitize("address"))) Head HeadOf(unsigned char* block) {
  return *reinterpret_cast<Head*>(block - sizeof(Head));
}

void* Take(std::size_t size, Form form) {
  if (isOpen && size <= mostOfBlock && size < kSize - sizeof(Head) - used) {
    unsigned char* const block = memory + used + sizeof(Head);
    const std::size_t next = used + sizeof(Head) + Rounded(size);
    if (next + sizeof(Head) <= kSize) {
      used = next;
      ++blocks;
      SetHead(block, {form, size});
      __asan_unpoison_memory_region(block, size);
      return block;
    }
  }
  return size > mostOfBlock ? nullptr : std::malloc(size);
}

void* TakeOrThrow(std::size_t size, Form form) {
  void* const block = Take(size, form);
  if (block == nullptr) throw std::bad_alloc();
  return block;
}

void GiveBack(void* pointer, Form form) {
  auto* const block = static_cast<unsigned char*>(pointer);
  if (block < memory || block >= memory + kSize) return std::free(pointer);
  const Head head = HeadOf(block);
  if (head.form == Form::None) End("given back twice");
  if (head.form != form) End("given back in the wrong form");
  SetHead(block, {Form::None, head.size});
  __asan_poison_memory_region(block, Rounded(head.size));
  --blocks;
}

}  // namespace

InputMemory::InputMemory() {
  if (used == 0) __asan_poison_memory_region(memory, kSize);
  used = 0;
  isOpen = true;
}

InputMemory::~InputMemory() {
  isOpen = false;
  if (blocks != 0) End("not given back");
}

BlockLimit::BlockLimit(std::size_t most) { mostOfBlock = most; }
BlockLimit::~BlockLimit() { mostOfBlock = SIZE_MAX; }

}  // namespace qvx::fuzz

using qvx::fuzz::Form;
using qvx::fuzz::GiveBack;
using qvx::fuzz::Take;
using qvx::fuzz::TakeOrThrow;

void* operator new(std::size_t size) { return TakeOrThrow(size, Form::One); }
void* operator new[](std::size_t size) { return TakeOrThrow(size, Form::Many); }
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
  return Take(size, Form::One);
}
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept {
  return Take(size, Form::Many);
}
void operator delete(void* block) noexcept { GiveBack(block, Form::One); }
void operator delete[](void* block) noexcept { GiveBack(block, Form::Many); }
void operator delete(void* block, std::size_t) noexcept { GiveBack(block, Form::One); }
void operator delete[](void* block, std::size_t) noexcept { GiveBack(block, Form::Many); }
