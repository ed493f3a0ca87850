#include "tools/check/record_chain_checker.h"

#include "tools/check/text.h"

namespace dg::check {

void RecordChainChecker::check(const RecordChain& chain) {
  const RecordUse* heads = run_.use(chain.headFile);
  const RecordUse* links = run_.use(chain.linkFile);
  if (heads == nullptr || links == nullptr) return;
  const bool fieldsAreThere =
      hasRoom(heads->file(), chain.first) && hasRoom(links->file(), chain.next);
  if (!fieldsAreThere) return;
  owner_.assign(static_cast<std::size_t>(links->last()) + 1, 0);
  for (std::int64_t head = 1; head <= heads->last(); ++head) {
    if (heads->isUsed(head)) checkChain(chain, *heads, *links, head);
  }
}

bool RecordChainChecker::hasRoom(const LogicalView& file, NumberField field) {
  const std::int32_t needed = field.position - 1 + field.width();
  if (file.entry.RecordLength >= needed) return true;
  run_.findings.damage(kind::kRecordLength, file.whole(),
                       "The records have " + text(file.entry.RecordLength) +
                           " bytes; the field that chains them ends at byte " + text(needed) + ".");
  return false;
}

void RecordChainChecker::checkChain(const RecordChain& chain, const RecordUse& heads,
                                    const RecordUse& links, std::int64_t head) {
  const std::string whose = "The " + std::string(chain.noun) + " chain of record " + text(head) +
                            " of " + heads.file().name;
  Place place = heads.file().atRecord(head, within(chain.first));
  std::int64_t next = numberOf(chain.first, heads.file().record(head));
  while (next != 0) {
    const std::string step = " leads to record " + text(next) + " of " + links.file().name;
    if (!links.isValidTarget(next)) {
      run_.findings.damage(kind::kChainLink, place, whose + step + ", which is not in use.");
      return;
    }
    std::int64_t& owner = owner_[static_cast<std::size_t>(next)];
    if (owner == head) {
      run_.findings.damage(kind::kChainLoop, place,
                           whose + step + " a second time and never ends.");
      return;
    }
    if (owner != 0) {
      run_.findings.damage(kind::kChainShared, place,
                           whose + step + ", which is in the chain of record " + text(owner) + ".");
      return;
    }
    owner = head;
    place = links.file().atRecord(next, within(chain.next));
    next = numberOf(chain.next, links.file().record(next));
  }
}

}  // namespace dg::check
