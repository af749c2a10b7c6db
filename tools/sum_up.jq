# Adds up the summaries of documents that vpnval check --format json printed for many commits each:
# jq -n -f sum_up.jq RESULT...

# An error is worse than too much removed (3), that worse than a rejection (1), a rejection worse than nothing to commit (4)
# and that worse than warnings (2).
def badness: {"0": 0, "2": 1, "4": 2, "1": 3, "3": 4}[tostring] // .;
def findings: group_by(.rule) | map(.[0] + {open: map(.open) | add, suppressed: map(.suppressed) | add});

reduce (inputs | .summary) as $next (
  {commits: 0, accepted: 0, "accepted-with-warnings": 0, rejected: 0, "not-decided": 0, findings: [], status: 0};
  .commits += $next.commits
  | .accepted += $next.accepted
  | ."accepted-with-warnings" += $next."accepted-with-warnings"
  | .rejected += $next.rejected
  | ."not-decided" += $next."not-decided"
  | if $next."with-foreign-nodes" then ."with-foreign-nodes" += $next."with-foreign-nodes" else . end
  | .findings = (.findings + $next.findings | findings)
  | .status = ([.status, $next.status] | max_by(badness))
)
