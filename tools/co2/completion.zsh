#compdef co2
# zsh completion for co2(1)

_co2() {
  # entries: begin, written by scripts/generate_entries
  local subcommands="td tp ph ps du dh ds dp hs pu ts tx px"
  # entries: end
  # outputs: begin, written by scripts/generate_outputs
  local outputs="temp \
    pres \
    dens \
    svol \
    qual \
    inte \
    enth \
    entr \
    cv \
    cp \
    ssnd \
    visc \
    cond \
    dpdd \
    dpdt \
    dhdd \
    dhdt \
    dsdd \
    dsdt"
  # outputs: end
  # derivatives: begin, written by scripts/generate_outputs
  local derivatives="dpdd_u \
    dpdu_d \
    dtdd_u \
    dtdu_d \
    dddp_h \
    dddh_p \
    dtdp_h \
    dtdh_p \
    dddp_s \
    dtdp_s \
    dhdd_p \
    dhdp_d \
    dsdd_p \
    dsdp_d \
    dpdd_t \
    dpdt_d \
    cv_eq \
    ssnd_eq \
    compr_s \
    compr_t \
    expan_p \
    fundam \
    dssnddd_t \
    dssnddt_d \
    dviscdd_t \
    dviscdt_d \
    dconddd_t \
    dconddt_d \
    dqualdd_t \
    dqualdt_d"
  # derivatives: end
  local -a subcommands=(${=subcommands} sat sat_t sat_p info)
  if ((CURRENT == 2)); then
    compadd -- $subcommands --help --version
    return
  fi
  local -a names=(${=outputs} ${=derivatives})
  [[ $words[2] == sat* ]] && names+=(latent_heat dpdt_sat)
  shift words
  ((CURRENT--))
  _arguments -s \
    '(-c --columns)'{-c,--columns}'[properties wanted]:names:_sequence compadd - $names' \
    '--csv[file of states]:file:_files' \
    '--delimiter[what separates fields]:character:' \
    '(-d --digits)'{-d,--digits}'[significant digits]:number:' \
    '--json[an object for each state]' \
    '--map[columns under other names]:COLUMN=INPUT:' \
    '(-o --output)'{-o,--output}'[file of results]:file:_files' \
    '(-q --quiet)'{-q,--quiet}'[no warnings, reports and counts]' \
    '--si[results in Pa, J/kg, Pa s]' \
    '(-j --threads)'{-j,--threads}'[threads]:number:' \
    '(- *)'{-h,--help}'[help]' \
    '*:number or start\:stop\:step:'
}
_co2 "$@"
