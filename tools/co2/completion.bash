# bash completion for co2(1)

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
  subcommands+=" sat sat_t sat_p info"
  local word=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD - 1]} subcommand=${COMP_WORDS[1]}
  COMPREPLY=()
  if ((COMP_CWORD == 1)); then
    COMPREPLY=($(compgen -W "$subcommands --help --version" -- "$word"))
    return
  fi
  case $before in
    -c | --columns)
      local names="$outputs $derivatives" chosen=
      [[ $subcommand == sat* ]] && names+=" latent_heat dpdt_sat"
      [[ $word == *,* ]] && chosen=${word%,*},
      COMPREPLY=($(compgen -P "$chosen" -W "$names" -- "${word##*,}"))
      compopt -o nospace
      ;;
    --csv | -o | --output) compopt -o filenames; COMPREPLY=($(compgen -f -- "$word")) ;;
    -d | --digits | -j | --threads | --map | --delimiter) ;;
    *)
      [[ $word == -* ]] && COMPREPLY=($(compgen -W "--columns --csv --delimiter --digits --help --json \
        --map --output --quiet --si --threads" -- "$word"))
      ;;
  esac
}
complete -F _co2 co2
