# bash completion for dgtool

# The long options of a command.
_dgtool_options() {
  local store='--store --temp --share-root --computer --directory --settings --as-of --no-log'
  case $1 in
    report) echo "--view --json --csv --xlsx --details --refresh --click $store" ;;
    'inspect files') echo "--json $store" ;;
    'inspect keys') echo "--find --last --reverse --limit --json $store" ;;
    'inspect record') echo "--as --hex --json $store" ;;
    attention) echo "--kind --all --limit --json --csv $store" ;;
    snapshot) echo "--history $store" ;;
    history) echo "--history --figure --since --json --csv $store" ;;
    brief) echo "--html --eml --from --to --subject --xlsx --stores --history $store" ;;
    recap) echo "--stores --json --csv --xlsx --progress $store" ;;
    stores) echo "--json $store" ;;
    check) echo "--quick --json --limit $store" ;;
    sample) echo '--seed --scale --stores --as-of --warranty-segments' ;;
  esac
  echo '--help --version'
}

_dgtool_commands() {
  case $1 in
    '') echo 'report inspect attention snapshot history brief recap stores check sample' ;;
    inspect) echo 'files keys record' ;;
  esac
}

_dgtool_views='frmRecap frmAR frmFp frmGLA frmGLL frmInv frmOpenSales frmPo frmProfit frmReturn
  frmSales frmShop frmUnits frmWarranty frmWarSeg'

_dgtool_kinds='floor-plan-due floor-plan-sold-unpaid shop-complete shop-old shop-promise-passed
  orders-old warranties-old purchase-orders-old returns-old units-old customers-past-due
  customers-over-limit parts-idle'

_dgtool() {
  local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]}
  local command='' word i
  COMPREPLY=()

  for ((i = 1; i < COMP_CWORD; i++)); do
    word=${COMP_WORDS[i]}
    case "$command $word" in
      ' report' | ' inspect' | ' attention' | ' snapshot' | ' history' | ' brief' | ' recap' | ' stores' | ' check' | ' sample') command=$word ;;
      'inspect files' | 'inspect keys' | 'inspect record') command="inspect $word" ;;
    esac
  done

  # The workbook of a mail goes with it, that of other commands into a file.
  [[ $previous == --xlsx && $command != brief ]] && previous=--html
  case $previous in
    --kind)
      mapfile -t COMPREPLY < <(compgen -W "$_dgtool_kinds" -- "$current")
      return
      ;;
    --view)
      mapfile -t COMPREPLY < <(compgen -W "$_dgtool_views" -- "$current")
      return
      ;;
    --store | --temp | --share-root)
      compopt -o filenames 2>/dev/null
      mapfile -t COMPREPLY < <(compgen -d -- "$current")
      return
      ;;
    --settings | --html | --eml | --history)
      compopt -o filenames 2>/dev/null
      mapfile -t COMPREPLY < <(compgen -f -- "$current")
      return
      ;;
    --click | --csv | --directory | --from | --to | --subject | --stores | --figure | --since | --computer | --as-of | --find | --limit | --as | --seed | --scale)
      return
      ;;
  esac

  if [[ $current == -* ]]; then
    mapfile -t COMPREPLY < <(compgen -W "$(_dgtool_options "$command")" -- "$current")
  elif [[ -n $(_dgtool_commands "$command") ]]; then
    mapfile -t COMPREPLY < <(compgen -W "$(_dgtool_commands "$command")" -- "$current")
  elif [[ $command == sample ]]; then
    compopt -o filenames 2>/dev/null
    mapfile -t COMPREPLY < <(compgen -d -- "$current")
  fi
}

complete -F _dgtool dgtool
